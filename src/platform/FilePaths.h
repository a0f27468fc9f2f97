#pragma once

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

} // namespace quillon::platform
