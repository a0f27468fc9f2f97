#include "platform/Files.h"

#include "text/Unicode.h"

#include <windows.h>

#include <share.h>
#include <shlobj.h>
#include <wchar.h>

#include <algorithm>

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

bool isFileThere(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

err::ResultCode removeFile(const std::wstring& path)
{
    if (DeleteFileW(path.c_str()) != 0)
        return {};
    return err::systemError(GetLastError());
}

void createFolders(const std::string& path)
{
    std::wstring name = text::wideFromUtf8(path);
    // The shell's call knows no other separator.
    std::ranges::replace(name, L'/', L'\\');
    static_cast<void>(SHCreateDirectoryExW(nullptr, name.c_str(), nullptr));
}

void RuntimeFileCloser::operator()(std::FILE* file) const noexcept
{
    // Nothing can be done about a failing close, and readers lose nothing by it.
    static_cast<void>(std::fclose(file));
}

RuntimeFile openRuntimeFile(const char* path, const char* mode)
{
    return RuntimeFile(
        _wfsopen(text::wideFromUtf8(path).c_str(), text::wideFromUtf8(mode).c_str(), _SH_DENYNO));
}

bool seekRuntimeFile(std::FILE* file, std::int64_t offset) noexcept
{
    return _fseeki64(file, offset, SEEK_SET) == 0;
}

bool seekRuntimeFileToEnd(std::FILE* file) noexcept
{
    return _fseeki64(file, 0, SEEK_END) == 0;
}

std::int64_t tellRuntimeFile(std::FILE* file) noexcept
{
    return _ftelli64(file);
}

// No reading rights to take from others: the folder of the user's programs is closed to them.
RuntimeFile openLogFile(const std::string& path, LogFileStart start)
{
    if (start == LogFileStart::Empty && !openRuntimeFile(path.c_str(), "wb"))
        return {};
    return openRuntimeFile(path.c_str(), "ab");
}

bool isNameOfOpenFile(const std::string& /*path*/, std::FILE* /*file*/) noexcept
{
    return true;
}

} // namespace quillon::platform
