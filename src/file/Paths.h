#pragma once

#include <string>
#include <string_view>

/// Rules for the names of files, on texts alone. Slashes and backslashes both separate, on every system, and
/// names are UTF-8.
namespace quillon::file {

/// True for a path with a drive, such as "C:\x", or with two separators in front, with or without one of the
/// prefixes "\\?\" and "\\?\UNC\" ahead of either; on Unix also for any path with "/" in front. What follows
/// "\\?\UNC\" is asked for a form of its own, so that a plain server name behind it is not absolute.
[[nodiscard]] bool isAbsolutePath(std::string_view path) noexcept;

/// Both with one separator between them: the first of those that `path` ends with, else the system's own. An
/// empty `path` gives the tail without its leading separators; an empty tail leaves the separator.
[[nodiscard]] std::string joinPath(std::string_view path, std::string_view tail);

/// `name` itself where it is absolute, else `base` and `name` joined and made a full path without "." and
/// ".."; only joined where the system cannot do that.
[[nodiscard]] std::string absolutePath(std::string_view base, std::string_view name);

/// The drive and folder of a path with the last separator at the end: all but the file's name.
[[nodiscard]] std::string getFolder(std::string_view path);

} // namespace quillon::file
