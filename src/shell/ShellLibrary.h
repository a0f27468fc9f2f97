#pragma once

#include "err/ResultCode.h"
#include "platform/RuntimeLibrary.h"
#include "shellhelper/QxShellHelper.h"

#include <string>

/// QxShellHelper as bound at run time, each function as a member without the "qxshell_" in front: null
/// throughout, or complete. The destructor gives the library back.
struct ShellLibrary
{
    quillon::platform::RuntimeLibrary module;

#define QXSHELL_MEMBER(family, suffix, Text) decltype(&qxshell_##family##suffix) family##suffix = nullptr;
    QXSHELL_FUNCTIONS(QXSHELL_MEMBER)
#undef QXSHELL_MEMBER

    [[nodiscard]] bool isLoaded() const noexcept
    {
        return module != nullptr;
    }
};

/// Loads the library with the UTF-8 name `path` and binds all its functions, in the order of their list. A
/// missing library or the first missing function gives {1, number of the system} and leaves `library` as it
/// is.
quillon::err::ResultCode loadShellLibrary(const std::string& path, ShellLibrary& library);
