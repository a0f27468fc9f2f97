// A verb of the current user for a file type, which Explorer shows in its context menu.

#include "shellhelper/DesktopShell.h"

#include <windows.h>

#include <memory>
#include <type_traits>

namespace quillon::shellhelper {
namespace {

err::ResultCode systemResult(LSTATUS status)
{
    return status == ERROR_SUCCESS ? err::ResultCode{} : err::systemError(status);
}

struct KeyCloser
{
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};

using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

std::wstring typePath(const std::wstring& fileType)
{
    return L"Software\\Classes\\" + fileType;
}

std::wstring verbPath(const std::wstring& fileType, const std::wstring& id)
{
    return typePath(fileType) + L"\\shell\\" + id;
}

/// A file type is the name of one key.
bool isFileTypeValid(const std::wstring& fileType)
{
    return !fileType.empty() && fileType.find(L'\\') == std::wstring::npos;
}

/// Makes the key and gives it `text` as its default value, which is what a verb and a command show.
err::ResultCode writeKey(const std::wstring& path, const std::wstring& text)
{
    HKEY key = nullptr;
    const LSTATUS created = RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                            nullptr, &key, nullptr);
    if (created != ERROR_SUCCESS)
        return systemResult(created);
    const Key owner(key);
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return systemResult(
        RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes));
}

bool isEmptyKey(const std::wstring& path)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS)
        return false;
    const Key owner(key);
    DWORD keys = 0;
    DWORD values = 0;
    return RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                            nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

/// Also takes away the keys above that hold nothing any more, as the verb made them when it came.
err::ResultCode removeVerb(const std::wstring& fileType, const std::wstring& id)
{
    const LSTATUS removed = RegDeleteTreeW(HKEY_CURRENT_USER, verbPath(fileType, id).c_str());
    if (removed != ERROR_SUCCESS)
        return removed == ERROR_FILE_NOT_FOUND ? err::ResultCode{} : systemResult(removed);
    for (const std::wstring& path : {typePath(fileType) + L"\\shell", typePath(fileType)}) {
        if (isEmptyKey(path))
            RegDeleteKeyW(HKEY_CURRENT_USER, path.c_str());
    }
    return {};
}

} // namespace

err::ResultCode contextMenuExists(const NativeText& fileType, const NativeText& id)
{
    if (!isFileTypeValid(fileType))
        return systemResult(ERROR_INVALID_PARAMETER);
    HKEY key = nullptr;
    const LSTATUS opened =
        RegOpenKeyExW(HKEY_CURRENT_USER, verbPath(fileType, id).c_str(), 0, KEY_QUERY_VALUE, &key);
    if (opened != ERROR_SUCCESS)
        return systemResult(opened);
    const Key owner(key);
    return {};
}

err::ResultCode createContextMenu(const NativeText& fileType, const NativeText& menuText,
                                  const NativeText& command, const NativeText& id)
{
    if (!isFileTypeValid(fileType))
        return systemResult(ERROR_INVALID_PARAMETER);
    const std::wstring verb = verbPath(fileType, id);
    err::ResultCode result = writeKey(verb, menuText);
    if (err::succeeded(result))
        result = writeKey(verb + L"\\command", command);
    if (!err::succeeded(result))
        static_cast<void>(removeVerb(fileType, id)); // a verb without a command would do nothing
    return result;
}

err::ResultCode removeContextMenu(const NativeText& fileType, const NativeText& id)
{
    return isFileTypeValid(fileType) ? removeVerb(fileType, id) : systemResult(ERROR_INVALID_PARAMETER);
}

} // namespace quillon::shellhelper
