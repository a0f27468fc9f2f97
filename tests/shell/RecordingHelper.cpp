// A helper library that does nothing and tells its calls.

#include "shellhelper/QxShellHelper.h"

#include <string>

namespace {

constexpr QxShellResult kAnswer{1, 77};

std::wstring& calls()
{
    static std::wstring text;
    return text;
}

template <class... Text>
QxShellResult record(const wchar_t* name, Text... texts)
{
    calls() += name;
    ((calls() += std::wstring(L"|") + texts), ...);
    calls() += L'\n';
    return kAnswer;
}

} // namespace

/// The calls since the last question, each with its texts in one line.
extern "C" QXSHELL_EXPORT void takeCalls(std::wstring& text)
{
    text.clear();
    text.swap(calls());
}

// What the program never calls tells of it by a name that no test expects.
#define UNUSED_WITH(name, ...)                                                                               \
    QxShellResult name(__VA_ARGS__) noexcept                                                                 \
    {                                                                                                        \
        return record(L"unexpected");                                                                        \
    }

UNUSED_WITH(qxshell_resolveShellError, )
UNUSED_WITH(qxshell_deleteDir, const char*)
UNUSED_WITH(qxshell_deleteDirT, const wchar_t*)
UNUSED_WITH(qxshell_deleteDirW, const wchar_t*)
UNUSED_WITH(qxshell_existsShellContextMenuForUser, const char*, const char*, const char*)
UNUSED_WITH(qxshell_createShellContextMenuForUser, const char*, const char*, const char*, const char*)
UNUSED_WITH(qxshell_removeShellContextMenuForUser, const char*, const char*, const char*)
UNUSED_WITH(qxshell_existsShellContextMenuForUserT, const wchar_t*, const wchar_t*, const wchar_t*)
UNUSED_WITH(qxshell_existsShellContextMenuForUserW, const wchar_t*, const wchar_t*, const wchar_t*)
UNUSED_WITH(qxshell_createShellContextMenuForUserW, const wchar_t*, const wchar_t*, const wchar_t*,
            const wchar_t*)
UNUSED_WITH(qxshell_removeShellContextMenuForUserW, const wchar_t*, const wchar_t*, const wchar_t*)
UNUSED_WITH(qxshell_openDirAndSelectItem, const char*)
UNUSED_WITH(qxshell_openDirAndSelectItemT, const wchar_t*)
UNUSED_WITH(qxshell_openDirAndSelectItemW, const wchar_t*)
UNUSED_WITH(qxshell_openDir, const char*)
UNUSED_WITH(qxshell_openDirT, const wchar_t*)
UNUSED_WITH(qxshell_openDirW, const wchar_t*)
UNUSED_WITH(qxshell_createShellLink, const char*, const char*, const char*)
UNUSED_WITH(qxshell_createShellLinkT, const wchar_t*, const wchar_t*, const wchar_t*)

QxShellResult qxshell_createShellContextMenuForUserT(const wchar_t* fileType, const wchar_t* menuText,
                                                     const wchar_t* command, const wchar_t* id) noexcept
{
    return record(L"create", fileType, menuText, command, id);
}

QxShellResult qxshell_removeShellContextMenuForUserT(const wchar_t* fileType, const wchar_t* menuText,
                                                     const wchar_t* id) noexcept
{
    return record(L"remove", fileType, menuText, id);
}

#ifndef LACKING
QxShellResult qxshell_createShellLinkW(const wchar_t* target, const wchar_t* description,
                                       const wchar_t* linkPath) noexcept
{
    return record(L"link", target, description, linkPath);
}
#endif
