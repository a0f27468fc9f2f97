#include "platform/ProgramPath.h"

#include <filesystem>
#include <system_error>

namespace quillon::platform {

std::string programPath()
{
    std::error_code error;
    const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : path.string();
}

} // namespace quillon::platform
