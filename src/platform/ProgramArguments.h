#pragma once

#include <string>
#include <vector>

namespace quillon::platform {

/// The arguments of the process behind the program's name, in UTF-8. `argc` and `argv` are those of the entry
/// function, before a toolkit took any out; a system that keeps the command line itself does not look at
/// them.
[[nodiscard]] std::vector<std::string> programArguments(int argc, const char* const* argv);

} // namespace quillon::platform
