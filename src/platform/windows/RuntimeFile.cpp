#include "platform/RuntimeFile.h"

#include "text/Unicode.h"

#include <share.h>
#include <wchar.h>

namespace quillon::platform {

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

} // namespace quillon::platform
