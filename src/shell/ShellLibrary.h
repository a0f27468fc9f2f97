#pragma once

#include "err/ResultCode.h"
#include "platform/RuntimeLibrary.h"
#include "shellhelper/QxShellHelper.h"

#include <string>

/// QxShellHelper as bound at run time: null throughout, or complete. The destructor gives the library back.
struct ShellLibrary
{
    quillon::platform::RuntimeLibrary module;

    decltype(&qxshell_resolveShellError) resolveShellError = nullptr;
    decltype(&qxshell_deleteDir) deleteDir = nullptr;
    decltype(&qxshell_deleteDirT) deleteDirT = nullptr;
    decltype(&qxshell_deleteDirW) deleteDirW = nullptr;
    decltype(&qxshell_existsShellContextMenuForUser) existsShellContextMenuForUser = nullptr;
    decltype(&qxshell_createShellContextMenuForUser) createShellContextMenuForUser = nullptr;
    decltype(&qxshell_removeShellContextMenuForUser) removeShellContextMenuForUser = nullptr;
    decltype(&qxshell_existsShellContextMenuForUserT) existsShellContextMenuForUserT = nullptr;
    decltype(&qxshell_createShellContextMenuForUserT) createShellContextMenuForUserT = nullptr;
    decltype(&qxshell_removeShellContextMenuForUserT) removeShellContextMenuForUserT = nullptr;
    decltype(&qxshell_existsShellContextMenuForUserW) existsShellContextMenuForUserW = nullptr;
    decltype(&qxshell_createShellContextMenuForUserW) createShellContextMenuForUserW = nullptr;
    decltype(&qxshell_removeShellContextMenuForUserW) removeShellContextMenuForUserW = nullptr;
    decltype(&qxshell_openDirAndSelectItem) openDirAndSelectItem = nullptr;
    decltype(&qxshell_openDirAndSelectItemT) openDirAndSelectItemT = nullptr;
    decltype(&qxshell_openDirAndSelectItemW) openDirAndSelectItemW = nullptr;
    decltype(&qxshell_openDir) openDir = nullptr;
    decltype(&qxshell_openDirT) openDirT = nullptr;
    decltype(&qxshell_openDirW) openDirW = nullptr;
    decltype(&qxshell_createShellLink) createShellLink = nullptr;
    decltype(&qxshell_createShellLinkT) createShellLinkT = nullptr;
    decltype(&qxshell_createShellLinkW) createShellLinkW = nullptr;

    [[nodiscard]] bool isLoaded() const noexcept { return module != nullptr; }
};

/// Loads the library with the UTF-8 name `path` and binds all its functions, in the order above. A missing
/// library or the first missing function gives {1, number of the system} and leaves `library` as it is.
quillon::err::ResultCode loadShellLibrary(const std::string& path, ShellLibrary& library);
