#include "shellhelper/QxShellHelper.h"

#include "err/ResultCode.h"
#include "shellhelper/DesktopShell.h"

#include <algorithm>
#include <type_traits>

using namespace quillon;
using shellhelper::NativeText;

namespace {

/// An id becomes the name of files and keys.
bool isIdValid(const NativeText& id)
{
    const auto isBad = [](NativeText::value_type c) {
        return c == '/' || c == '\\' || static_cast<std::make_unsigned_t<decltype(c)>>(c) < ' ';
    };
    return !id.empty() && std::ranges::none_of(id, isBad);
}

// What each family does, under its own name and with the texts in the system's own form.
namespace families {

err::ResultCode resolveShellError()
{
    return shellhelper::notImplemented();
}

err::ResultCode deleteDir(const NativeText& /*path*/)
{
    return shellhelper::notImplemented();
}

err::ResultCode existsShellContextMenuForUser(const NativeText& fileType, const NativeText& /*menuText*/,
                                              const NativeText& id)
{
    return isIdValid(id) ? shellhelper::contextMenuExists(fileType, id)
                         : err::programError(err::kInvalidArgument);
}

err::ResultCode createShellContextMenuForUser(const NativeText& fileType, const NativeText& menuText,
                                              const NativeText& command, const NativeText& id)
{
    return isIdValid(id) ? shellhelper::createContextMenu(fileType, menuText, command, id)
                         : err::programError(err::kInvalidArgument);
}

err::ResultCode removeShellContextMenuForUser(const NativeText& fileType, const NativeText& /*menuText*/,
                                              const NativeText& id)
{
    return isIdValid(id) ? shellhelper::removeContextMenu(fileType, id)
                         : err::programError(err::kInvalidArgument);
}

err::ResultCode openDirAndSelectItem(const NativeText& path)
{
    return shellhelper::openFolderAndSelect(path);
}

err::ResultCode openDir(const NativeText& path)
{
    return shellhelper::openFolder(path);
}

err::ResultCode createShellLink(const NativeText& target, const NativeText& description,
                                const NativeText& linkPath)
{
    return shellhelper::createLink(target, description, linkPath);
}

} // namespace families

/// What an exported function does: its family's work, where no text is missing.
template <class Family>
auto checked(Family family)
{
    return [family](auto... texts) -> QxShellResult {
        const bool isAnyMissing = (... || (texts == nullptr));
        const err::ResultCode result = isAnyMissing ? err::programError(err::kInvalidArgument)
                                                    : family(shellhelper::nativeText(texts)...);
        return {result.group, result.code};
    };
}

} // namespace

#define QXSHELL_DEFINE(family, suffix, Text)                                                                 \
    QxShellResult qxshell_##family##suffix(QXSHELL_##family(Text)) noexcept                                  \
    {                                                                                                        \
        return checked(families::family)(QXSHELL_##family(QXSHELL_NAME));                                    \
    }
QXSHELL_FUNCTIONS(QXSHELL_DEFINE)
