#include "platform/ProgramArguments.h"

namespace quillon::platform {

std::vector<std::string> programArguments(int argc, const char* const* argv)
{
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        if (argv[i] != nullptr)
            arguments.emplace_back(argv[i]);
    }
    return arguments;
}

} // namespace quillon::platform
