#include "platform/ProgramPath.h"

#include "text/Unicode.h"

#include <windows.h>

namespace quillon::platform {
namespace {

// The longest path that Windows knows, in wide characters.
constexpr std::size_t kLongestPath = 32768;

} // namespace

std::string programPath()
{
    std::wstring path(kLongestPath, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length == path.size())
        return {};
    path.resize(length);
    return text::utf8FromWide(path);
}

} // namespace quillon::platform
