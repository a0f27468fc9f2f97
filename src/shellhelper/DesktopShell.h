#pragma once

#include "err/ResultCode.h"

#include <filesystem>
#include <string>

/// What the library does on each system, in the text that the system takes. The contracts stand at the
/// exported functions in QxShellHelper.h.
namespace quillon::shellhelper {

/// UTF-8 on Unix, UTF-16 on Windows.
using NativeText = std::filesystem::path::string_type;

[[nodiscard]] NativeText nativeText(const char* text);
[[nodiscard]] NativeText nativeText(const wchar_t* text);

/// The answer of a function that does nothing on this system.
err::ResultCode notImplemented();

err::ResultCode contextMenuExists(const NativeText& fileType, const NativeText& id);
err::ResultCode createContextMenu(const NativeText& fileType, const NativeText& menuText,
                                  const NativeText& command, const NativeText& id);
err::ResultCode removeContextMenu(const NativeText& fileType, const NativeText& id);

err::ResultCode createLink(const NativeText& target, const NativeText& description,
                           const NativeText& linkPath);

err::ResultCode openFolder(const NativeText& path);
err::ResultCode openFolderAndSelect(const NativeText& path);

} // namespace quillon::shellhelper
