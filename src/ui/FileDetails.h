#pragma once

#include <QString>

#include <cstdint>
#include <string>

/// What the details panel says about the file or folder at `path`: size (not for a folder), owner, times and
/// permissions, one line each, without a line feed at the end. Lines that the system cannot fill are left
/// out. "File not found" where there is nothing at `path`. The labels are translated. Belongs to the main
/// thread.
[[nodiscard]] QString getFileDetailsText(const QString& path);

/// A size in bytes as a text in units of 1024. `exact` names every unit down to the byte ("1KB 512B");
/// otherwise the largest unit stands with two decimals ("1.50KB"). The decimal point is "." in every locale.
/// A negative size has no sensible text, and is written with all units of its two's complement.
[[nodiscard]] std::string formatFileSize(std::int64_t size, bool exact);

/// The nine letters of a Unix permission text, as in "rwxr-x--x".
[[nodiscard]] std::string formatFilePermissions(bool ownerRead, bool ownerWrite, bool ownerExecute,
                                                bool groupRead, bool groupWrite, bool groupExecute,
                                                bool otherRead, bool otherWrite, bool otherExecute);
