#pragma once

#include "err/ResultCode.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

/// What the system makes of the names of files. All names are UTF-8.
namespace quillon::platform {

/// What the system itself puts between a folder and a name.
[[nodiscard]] char nativeSeparator() noexcept;

/// True where a single slash in front makes a path absolute.
[[nodiscard]] bool isSlashRoot() noexcept;

/// The path from the root on, without "." and ".." and doubled separators, whether or not there is such a
/// file; a relative one counts from the current folder. Empty where the system cannot say.
[[nodiscard]] std::string fullPath(const std::string& path);

/// True where there is a file of that name, or a link to one, and it is no folder; on Unix no device, pipe or
/// socket either, as these may block for ever.
[[nodiscard]] bool isPlainFile(const std::string& path);

/// Whether something else than a folder is at the path. A link counts as what it points to, and one that
/// points nowhere as a file.
[[nodiscard]] bool isFileThere(const std::wstring& path);

/// Removes a file, or a link but not what it points to. Failure gives {1, system error}.
err::ResultCode removeFile(const std::wstring& path);

/// Makes the folder with the UTF-8 name `path` and all that is missing above it; on Unix what is made is its
/// owner's alone. A relative name counts from the current folder where the system takes one. A failure is
/// silent and shows at the next use of the folder.
void createFolders(const std::string& path);

struct RuntimeFileCloser
{
    void operator()(std::FILE* file) const noexcept;
};

/// A buffered file of the C runtime library, closed by its owner.
using RuntimeFile = std::unique_ptr<std::FILE, RuntimeFileCloser>;

/// Opens the file with the UTF-8 name `path` in `mode` (as of fopen). Empty on failure, with the reason in
/// errno.
[[nodiscard]] RuntimeFile openRuntimeFile(const char* path, const char* mode);

/// Moves to `offset` bytes from the start, or to the end of the file; true on success. 64 bits on every
/// system.
[[nodiscard]] bool seekRuntimeFile(std::FILE* file, std::int64_t offset) noexcept;
[[nodiscard]] bool seekRuntimeFileToEnd(std::FILE* file) noexcept;

/// The position in bytes, or -1 on failure.
[[nodiscard]] std::int64_t tellRuntimeFile(std::FILE* file) noexcept;

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
