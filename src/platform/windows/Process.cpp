#include "platform/Process.h"

#include "text/AsciiText.h"
#include "text/Unicode.h"

#include <windows.h>

#include <shellapi.h>

#include <memory>

namespace quillon::platform {

std::uint32_t currentProcessId() noexcept
{
    return GetCurrentProcessId();
}

std::uint32_t currentThreadId() noexcept
{
    return GetCurrentThreadId();
}

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

namespace {

// The longest path that Windows knows, in wide characters.
constexpr std::size_t kLongestPath = 32768;

} // namespace

// No folder of the user's stands in the environment here.
void dropRelativeFolders() {}

std::string programPath()
{
    std::wstring path(kLongestPath, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length == path.size())
        return {};
    path.resize(length);
    return text::utf8FromWide(path);
}

std::wstring shellFileCommand(const std::string& program)
{
    return text::wideFromUtf8('"' + program + "\" /ifile \"%L\"");
}

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
