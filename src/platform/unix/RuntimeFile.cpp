#include "platform/RuntimeFile.h"

namespace quillon::platform {

void RuntimeFileCloser::operator()(std::FILE* file) const noexcept
{
    // Nothing can be done about a failing close, and readers lose nothing by it.
    static_cast<void>(std::fclose(file));
}

RuntimeFile openRuntimeFile(const char* path, const char* mode)
{
    return RuntimeFile(std::fopen(path, mode));
}

bool seekRuntimeFile(std::FILE* file, std::int64_t offset) noexcept
{
    return fseeko(file, offset, SEEK_SET) == 0;
}

bool seekRuntimeFileToEnd(std::FILE* file) noexcept
{
    return fseeko(file, 0, SEEK_END) == 0;
}

std::int64_t tellRuntimeFile(std::FILE* file) noexcept
{
    return ftello(file);
}

} // namespace quillon::platform
