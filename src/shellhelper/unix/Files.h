#pragma once

#include "err/ResultCode.h"

#include <sys/stat.h>
#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

/// What is written here is small and read by other programs at any time, so every write is atomic.
namespace quillon::shellhelper {

/// Where the user's programs keep their data and their configuration (freedesktop.org's base directories),
/// without a slash at the end. Empty where the user has no home.
[[nodiscard]] std::string dataHome();
[[nodiscard]] std::string configHome();

/// The system's folders of configuration, the most important first.
[[nodiscard]] std::vector<std::string> systemConfigFolders();

[[nodiscard]] bool isFolder(const std::string& path);

/// Reads a whole regular file; everything else gives {1, EINVAL}.
err::ResultCode readFile(const std::string& path, std::string& content);

/// Writes the file beside its place and moves it there, with its missing folders. A file that has these bytes
/// and this mode already is left alone.
err::ResultCode writeFile(const std::string& path, std::string_view content, mode_t mode);

/// What a file was like when it was read, so that nobody's later changes are overwritten.
struct FileState
{
    bool exists = false;
    struct stat status = {};
};

/// Reads a file that belongs to another program, and what it is like. A missing one is success. {1, EINVAL}
/// also for a link that leads nowhere.
err::ResultCode readSharedFile(const std::string& path, std::string& content, FileState& state);

/// Writes it as `writeFile` does, but only where it is still what it was, and so that it survives a crash of
/// the machine: {1, EAGAIN} where somebody has changed it meanwhile, {1, EPERM} where it belongs to another
/// user, {1, EACCES} where its owner has protected it.
err::ResultCode writeSharedFile(const std::string& path, std::string_view content, const FileState& state);

/// Removes it under the same conditions.
err::ResultCode removeSharedFile(const std::string& path, const FileState& state);

/// Removes a file; none at all is success.
err::ResultCode removeFile(const std::string& path);

} // namespace quillon::shellhelper
