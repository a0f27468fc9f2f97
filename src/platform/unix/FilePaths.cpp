#include "platform/FilePaths.h"

#include <filesystem>
#include <system_error>

namespace quillon::platform {

char nativeSeparator() noexcept
{
    return '/';
}

bool isSlashRoot() noexcept
{
    return true;
}

std::string fullPath(const std::string& path)
{
    if (path.empty())
        return {};
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? std::string() : absolute.lexically_normal().string();
}

bool isPlainFile(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

} // namespace quillon::platform
