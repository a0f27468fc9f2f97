#include "platform/windows/LongName.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

namespace quillon::platform {

std::wstring withLongNamePrefix(const std::wstring& fullName)
{
    const std::wstring_view name = fullName;
    const bool isPlain = name.size() < MAX_PATH && !name.ends_with(L' ');
    if (isPlain || name.starts_with(LR"(\\?\)") || name.starts_with(LR"(\\.\)"))
        return fullName;
    constexpr std::wstring_view kServer = LR"(\\)";
    if (name.starts_with(kServer))
        return LR"(\\?\UNC\)" + fullName.substr(kServer.size());
    return LR"(\\?\)" + fullName;
}

std::wstring openableName(const std::wstring& name)
{
    if (name.starts_with(LR"(\\?\)"))
        return name;
    const DWORD room = GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
    std::wstring full(room, L'\0');
    const DWORD length = GetFullPathNameW(name.c_str(), room, full.data(), nullptr);
    if (length == 0 || length >= room)
        return name;
    full.resize(length);
    // Blanks at the end get lost there.
    full.append(name.size() - 1 - std::min(name.find_last_not_of(L' '), name.size() - 1), L' ');
    return withLongNamePrefix(full);
}

} // namespace quillon::platform
