#include "platform/SystemErrorText.h"

#include "text/AsciiText.h"
#include "text/Unicode.h"

#include <windows.h>

#include <memory>

namespace quillon::platform {
namespace {

struct LocalMemoryCloser
{
    void operator()(void* memory) const noexcept { LocalFree(memory); }
};

} // namespace

std::string osErrorText(std::uint32_t code)
{
    wchar_t* buffer = nullptr;
    // With this flag the function takes the address of a pointer where it otherwise takes a buffer.
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM, nullptr,
                                        code, 0, reinterpret_cast<LPWSTR>(&buffer), 0, nullptr);
    const std::unique_ptr<wchar_t, LocalMemoryCloser> owner(buffer);
    if (length == 0 || buffer == nullptr)
        return {};
    const std::string message = text::utf8FromWide({buffer, length});
    return std::string(text::trimAscii(message));
}

} // namespace quillon::platform
