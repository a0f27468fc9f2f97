#include "platform/CurlLibraryPaths.h"

#include "platform/ProgramPath.h"

namespace quillon::platform {

// Only the library that came with the program: what lies in other folders may be anybody's.
std::vector<std::string> curlLibraryPaths()
{
    const std::string program = programPath();
    if (program.empty())
        return {};
    return {program.substr(0, program.rfind('\\') + 1) + "libcurl.dll"};
}

} // namespace quillon::platform
