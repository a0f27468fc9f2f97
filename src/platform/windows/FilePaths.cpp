#include "platform/FilePaths.h"

#include "text/Unicode.h"

#include <windows.h>

namespace quillon::platform {

char nativeSeparator() noexcept
{
    return '\\';
}

bool isSlashRoot() noexcept
{
    return false;
}

std::string fullPath(const std::string& path)
{
    const std::wstring name = text::wideFromUtf8(path);
    std::wstring full;
    DWORD length = GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
    // Another thread may change the current folder, and with it the length, between two calls.
    while (length > full.size()) {
        full.resize(length);
        length = GetFullPathNameW(name.c_str(), length, full.data(), nullptr);
    }
    full.resize(length);
    return text::utf8FromWide(full);
}

bool isPlainFile(const std::string& path)
{
    const DWORD attributes = GetFileAttributesW(text::wideFromUtf8(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

} // namespace quillon::platform
