#pragma once

#include <string>

namespace quillon::platform {

/// The command line by which the desktop's shell starts the program at the full path `program` (UTF-8) with a
/// chosen file, for which %L stands. On Windows the switch /ifile goes in front of the file; on Unix the file
/// is the one argument, as its path begins with a slash and would be taken for a switch. There quotes and
/// backslashes in the program's path have a backslash in front, and percent signs stand twice.
[[nodiscard]] std::wstring shellFileCommand(const std::string& program);

} // namespace quillon::platform
