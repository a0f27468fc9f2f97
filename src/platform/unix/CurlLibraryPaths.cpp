#include "platform/CurlLibraryPaths.h"

#include "platform/ProgramPath.h"

#include <filesystem>

namespace quillon::platform {

std::vector<std::string> curlLibraryPaths()
{
    // The number stands for the binary interface, which has been the same since release 7.16 of 2006.
    const std::string name = "libcurl.so.4";
    const std::filesystem::path program = programPath();
    return {(program.parent_path() / name).string(), name};
}

} // namespace quillon::platform
