#include "platform/LogFile.h"

namespace quillon::platform {

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
