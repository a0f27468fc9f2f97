#include "platform/FileRemoval.h"

#include "text/Unicode.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace quillon::platform {

bool isFileThere(const std::wstring& path)
{
    const std::string name = text::utf8FromWide(path);
    struct stat status = {};
    if (stat(name.c_str(), &status) == 0)
        return !S_ISDIR(status.st_mode);
    return lstat(name.c_str(), &status) == 0;
}

err::ResultCode removeFile(const std::wstring& path)
{
    if (unlink(text::utf8FromWide(path).c_str()) == 0)
        return {};
    return {err::kGroupSystem, static_cast<std::uint32_t>(errno)};
}

} // namespace quillon::platform
