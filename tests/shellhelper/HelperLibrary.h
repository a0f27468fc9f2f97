#pragma once

#include "shell/ShellLibrary.h"
#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

namespace quillon::tests {

inline constexpr const wchar_t* kId = L"{00000000-TEST-4000-8000-000000000000}";

/// The library that the build made, bound as the program binds it.
inline const ShellLibrary& helper()
{
    static ShellLibrary library;
    static const err::ResultCode loaded = loadShellLibrary(KESTRUM_SHELL_HELPER, library);
    EXPECT_EQ(loaded, err::ResultCode());
    return library;
}

inline err::ResultCode asResult(const QxShellResult& result)
{
    return {result.group, result.code};
}

inline err::ResultCode create(const wchar_t* type, const std::wstring& text, const std::wstring& command)
{
    return asResult(helper().createShellContextMenuForUserT(type, text.c_str(), command.c_str(), kId));
}

inline err::ResultCode remove(const wchar_t* type)
{
    return asResult(helper().removeShellContextMenuForUserT(type, L"any text", kId));
}

inline err::ResultCode exists(const wchar_t* type)
{
    return asResult(helper().existsShellContextMenuForUserT(type, L"any text", kId));
}

} // namespace quillon::tests
