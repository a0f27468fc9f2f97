#include "platform/FileRemoval.h"

#include <windows.h>

namespace quillon::platform {

bool isFileThere(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

err::ResultCode removeFile(const std::wstring& path)
{
    if (DeleteFileW(path.c_str()) != 0)
        return {};
    return {err::kGroupSystem, GetLastError()};
}

} // namespace quillon::platform
