#include "platform/ProgramArguments.h"

#include "text/Unicode.h"

#include <windows.h>

#include <shellapi.h>

#include <memory>

namespace quillon::platform {
namespace {

struct LocalMemoryCloser
{
    void operator()(void* memory) const noexcept { LocalFree(memory); }
};

} // namespace

// The runtime's own arguments have been through the active code page; the wide command line has not.
std::vector<std::string> programArguments(int /*argc*/, const char* const* /*argv*/)
{
    int count = 0;
    const std::unique_ptr<LPWSTR[], LocalMemoryCloser> wide(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    if (!wide)
        return arguments;
    for (int i = 1; i < count; ++i) {
        if (wide[static_cast<std::size_t>(i)] != nullptr)
            arguments.push_back(text::utf8FromWide(wide[static_cast<std::size_t>(i)]));
    }
    return arguments;
}

} // namespace quillon::platform
