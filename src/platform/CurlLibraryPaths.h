#pragma once

#include <string>
#include <vector>

namespace quillon::platform {

/// Where libcurl may be, in the order to look, as names for loadRuntimeLibrary. The first is the place beside
/// the program, with its full path in UTF-8.
[[nodiscard]] std::vector<std::string> curlLibraryPaths();

} // namespace quillon::platform
