#include "platform/Folders.h"

#include <sys/stat.h>

namespace quillon::platform {

void createFolders(const std::string& path)
{
    // The ends of all parents, the root left out, and of the path itself. What exists already fails unharmed.
    for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
        static_cast<void>(mkdir(path.substr(0, end).c_str(), S_IRWXU));
    static_cast<void>(mkdir(path.c_str(), S_IRWXU));
}

} // namespace quillon::platform
