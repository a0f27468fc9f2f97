#include "shellhelper/QxShellHelper.h"

#include "err/ResultCode.h"
#include "shellhelper/DesktopShell.h"

#include <algorithm>
#include <type_traits>

using namespace quillon;
using shellhelper::NativeText;

namespace {

QxShellResult toResult(const err::ResultCode& result)
{
    return {result.group, result.code};
}

QxShellResult nothing()
{
    return toResult(shellhelper::notImplemented());
}

/// Runs `operation` with the texts in the system's own form.
template <class Operation, class... Text>
QxShellResult run(Operation operation, Text... texts)
{
    const bool isAnyMissing = (... || (texts == nullptr));
    if (isAnyMissing)
        return toResult(err::programError(err::kInvalidArgument));
    return toResult(operation(shellhelper::nativeText(texts)...));
}

/// An id becomes the name of files and keys.
bool isIdValid(const NativeText& id)
{
    const auto isBad = [](NativeText::value_type c) {
        return c == '/' || c == '\\' || static_cast<std::make_unsigned_t<decltype(c)>>(c) < ' ';
    };
    return !id.empty() && std::ranges::none_of(id, isBad);
}

err::ResultCode existsMenu(const NativeText& fileType, const NativeText& /*menuText*/, const NativeText& id)
{
    return isIdValid(id) ? shellhelper::contextMenuExists(fileType, id)
                         : err::programError(err::kInvalidArgument);
}

err::ResultCode createMenu(const NativeText& fileType, const NativeText& menuText, const NativeText& command,
                           const NativeText& id)
{
    return isIdValid(id) ? shellhelper::createContextMenu(fileType, menuText, command, id)
                         : err::programError(err::kInvalidArgument);
}

err::ResultCode removeMenu(const NativeText& fileType, const NativeText& /*menuText*/, const NativeText& id)
{
    return isIdValid(id) ? shellhelper::removeContextMenu(fileType, id)
                         : err::programError(err::kInvalidArgument);
}

} // namespace

QxShellResult qxshell_resolveShellError() noexcept
{
    return nothing();
}

QxShellResult qxshell_deleteDir(const char* /*path*/) noexcept
{
    return nothing();
}

QxShellResult qxshell_deleteDirT(const wchar_t* /*path*/) noexcept
{
    return nothing();
}

QxShellResult qxshell_deleteDirW(const wchar_t* /*path*/) noexcept
{
    return nothing();
}

QxShellResult qxshell_existsShellContextMenuForUser(const char* fileType, const char* menuText,
                                                    const char* id) noexcept
{
    return run(existsMenu, fileType, menuText, id);
}

QxShellResult qxshell_createShellContextMenuForUser(const char* fileType, const char* menuText,
                                                    const char* command, const char* id) noexcept
{
    return run(createMenu, fileType, menuText, command, id);
}

QxShellResult qxshell_removeShellContextMenuForUser(const char* fileType, const char* menuText,
                                                    const char* id) noexcept
{
    return run(removeMenu, fileType, menuText, id);
}

QxShellResult qxshell_existsShellContextMenuForUserT(const wchar_t* fileType, const wchar_t* menuText,
                                                     const wchar_t* id) noexcept
{
    return run(existsMenu, fileType, menuText, id);
}

QxShellResult qxshell_createShellContextMenuForUserT(const wchar_t* fileType, const wchar_t* menuText,
                                                     const wchar_t* command, const wchar_t* id) noexcept
{
    return run(createMenu, fileType, menuText, command, id);
}

QxShellResult qxshell_removeShellContextMenuForUserT(const wchar_t* fileType, const wchar_t* menuText,
                                                     const wchar_t* id) noexcept
{
    return run(removeMenu, fileType, menuText, id);
}

QxShellResult qxshell_existsShellContextMenuForUserW(const wchar_t* fileType, const wchar_t* menuText,
                                                     const wchar_t* id) noexcept
{
    return run(existsMenu, fileType, menuText, id);
}

QxShellResult qxshell_createShellContextMenuForUserW(const wchar_t* fileType, const wchar_t* menuText,
                                                     const wchar_t* command, const wchar_t* id) noexcept
{
    return run(createMenu, fileType, menuText, command, id);
}

QxShellResult qxshell_removeShellContextMenuForUserW(const wchar_t* fileType, const wchar_t* menuText,
                                                     const wchar_t* id) noexcept
{
    return run(removeMenu, fileType, menuText, id);
}

QxShellResult qxshell_openDirAndSelectItem(const char* path) noexcept
{
    return run(shellhelper::openFolderAndSelect, path);
}

QxShellResult qxshell_openDirAndSelectItemT(const wchar_t* path) noexcept
{
    return run(shellhelper::openFolderAndSelect, path);
}

QxShellResult qxshell_openDirAndSelectItemW(const wchar_t* path) noexcept
{
    return run(shellhelper::openFolderAndSelect, path);
}

QxShellResult qxshell_openDir(const char* path) noexcept
{
    return run(shellhelper::openFolder, path);
}

QxShellResult qxshell_openDirT(const wchar_t* path) noexcept
{
    return run(shellhelper::openFolder, path);
}

QxShellResult qxshell_openDirW(const wchar_t* path) noexcept
{
    return run(shellhelper::openFolder, path);
}

QxShellResult qxshell_createShellLink(const char* target, const char* description,
                                      const char* linkPath) noexcept
{
    return run(shellhelper::createLink, target, description, linkPath);
}

QxShellResult qxshell_createShellLinkT(const wchar_t* target, const wchar_t* description,
                                       const wchar_t* linkPath) noexcept
{
    return run(shellhelper::createLink, target, description, linkPath);
}

QxShellResult qxshell_createShellLinkW(const wchar_t* target, const wchar_t* description,
                                       const wchar_t* linkPath) noexcept
{
    return run(shellhelper::createLink, target, description, linkPath);
}
