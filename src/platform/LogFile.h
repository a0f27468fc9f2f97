#pragma once

#include "platform/RuntimeFile.h"

#include <cstdio>
#include <string>

namespace quillon::platform {

enum class LogFileStart
{
    Keep, ///< mode "ab"
    Empty ///< mode "wb", then as above
};

/// Opens the log file with the UTF-8 name `path`, made where it is missing, as plain bytes; writes go to its
/// end, wherever that is by then, and other programs may read and write it meanwhile. Never waits for a
/// reader of a pipe: what is neither a plain file nor a character device is refused. On Unix the file is its
/// owner's alone afterwards. Empty on failure.
[[nodiscard]] RuntimeFile openLogFile(const std::string& path, LogFileStart start);

/// Whether `path` still names the open file. Where the system lets nobody rename or delete an open file, it
/// does.
[[nodiscard]] bool isNameOfOpenFile(const std::string& path, std::FILE* file) noexcept;

} // namespace quillon::platform
