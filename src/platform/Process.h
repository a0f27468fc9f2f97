#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillon::platform {

/// The system's numbers of this process and of the calling thread.
[[nodiscard]] std::uint32_t currentProcessId() noexcept;
[[nodiscard]] std::uint32_t currentThreadId() noexcept;

/// The arguments of the process behind the program's name, in UTF-8. `argc` and `argv` are those of the entry
/// function, before a toolkit took any out; a system that keeps the command line itself does not look at
/// them.
[[nodiscard]] std::vector<std::string> programArguments(int argc, const char* const* argv);

/// Takes those names of the user's folders out of the environment that are no full names: they would count
/// from whatever folder the program was started in, and desktops ignore such names. Called before anybody
/// asks for a folder, and before there is a second thread.
void dropRelativeFolders();

/// The full name of the running program's file in UTF-8, links resolved. Empty where the system does not say.
[[nodiscard]] std::string programPath();

/// The command line by which the desktop's shell starts the program at the full path `program` (UTF-8) with a
/// chosen file, for which %L stands. On Windows the switch /ifile goes in front of the file; on Unix the file
/// is the one argument, as its path begins with a slash and would be taken for a switch. There quotes and
/// backslashes in the program's path have a backslash in front, and percent signs stand twice.
[[nodiscard]] std::wstring shellFileCommand(const std::string& program);

/// The system's text for one of its error numbers (group 1), UTF-8, trimmed; empty for an unknown number.
[[nodiscard]] std::string osErrorText(std::uint32_t code);

} // namespace quillon::platform
