#include "platform/windows/LongName.h"

#include <windows.h>

#include <string_view>

namespace quillon::platform {

std::wstring withLongNamePrefix(const std::wstring& fullName)
{
    const std::wstring_view name = fullName;
    if (name.size() < MAX_PATH || name.starts_with(LR"(\\?\)") || name.starts_with(LR"(\\.\)"))
        return fullName;
    constexpr std::wstring_view kServer = LR"(\\)";
    if (name.starts_with(kServer))
        return LR"(\\?\UNC\)" + fullName.substr(kServer.size());
    return LR"(\\?\)" + fullName;
}

std::wstring openableName(const std::wstring& name)
{
    const DWORD room = GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
    std::wstring full(room, L'\0');
    const DWORD length = GetFullPathNameW(name.c_str(), room, full.data(), nullptr);
    if (length == 0 || length >= room)
        return name;
    full.resize(length);
    return withLongNamePrefix(full);
}

} // namespace quillon::platform
