#pragma once

#include "shell/ShellLibrary.h"

#include <stdexcept>

namespace quillon::tests {

inline constexpr const wchar_t* kId = L"{00000000-TEST-4000-8000-000000000000}";

/// The library that the build made, bound as the program binds it.
inline const ShellLibrary& helper()
{
    static const ShellLibrary library = [] {
        ShellLibrary loaded;
        if (!err::succeeded(loadShellLibrary(KESTRUM_SHELL_HELPER, loaded)))
            throw std::runtime_error("the helper library cannot be loaded");
        return loaded;
    }();
    return library;
}

inline err::ResultCode asResult(const QxShellResult& result)
{
    return {result.group, result.code};
}

} // namespace quillon::tests
