// Texts, the shortcut and showing a folder, by the shell's own services.

#include "shellhelper/DesktopShell.h"

#include <windows.h>

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include <memory>

namespace quillon::shellhelper {

using err::systemError;

namespace {

// ShellExecuteW answers an error number up to this one, and something larger on success.
constexpr INT_PTR kLastShellError = 32;

err::ResultCode systemResult(HRESULT result)
{
    if (SUCCEEDED(result))
        return {};
    return systemError(HRESULT_FACILITY(result) == FACILITY_WIN32 ? HRESULT_CODE(result) : result);
}

/// The thread may use COM while this lives. It may have chosen another model before, which serves as well.
class ComUse
{
public:
    ComUse() noexcept
        : m_result(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))
    {
    }
    ComUse(const ComUse&) = delete;
    ComUse& operator=(const ComUse&) = delete;
    ~ComUse()
    {
        if (SUCCEEDED(m_result))
            CoUninitialize();
    }

private:
    HRESULT m_result;
};

struct ComReleaser
{
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};

struct ItemListFreer
{
    void operator()(ITEMIDLIST* list) const noexcept { ILFree(list); }
};

HRESULT saveLink(IShellLinkW& link, const std::wstring& path)
{
    void* object = nullptr;
    if (const HRESULT found = link.QueryInterface(IID_IPersistFile, &object); FAILED(found))
        return found;
    const std::unique_ptr<IPersistFile, ComReleaser> file(static_cast<IPersistFile*>(object));
    return file->Save(path.c_str(), TRUE);
}

HRESULT fillLink(IShellLinkW& link, const std::wstring& target, const std::wstring& description)
{
    const HRESULT result = link.SetPath(target.c_str());
    return FAILED(result) ? result : link.SetDescription(description.c_str());
}

bool isFolder(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace

NativeText nativeText(const char* text)
{
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), length);
    wide.resize(wide.empty() ? 0 : wide.size() - 1); // the zero at the end
    return wide;
}

NativeText nativeText(const wchar_t* text)
{
    return text;
}

err::ResultCode notImplemented()
{
    return systemError(ERROR_CALL_NOT_IMPLEMENTED);
}

err::ResultCode createLink(const NativeText& target, const NativeText& description,
                           const NativeText& linkPath)
{
    const ComUse com;
    void* object = nullptr;
    const HRESULT created =
        CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &object);
    if (FAILED(created))
        return systemResult(created);
    const std::unique_ptr<IShellLinkW, ComReleaser> link(static_cast<IShellLinkW*>(object));
    const HRESULT filled = fillLink(*link, target, description);
    return systemResult(FAILED(filled) ? filled : saveLink(*link, linkPath));
}

err::ResultCode openFolder(const NativeText& path)
{
    if (!isFolder(path))
        return systemError(ERROR_DIRECTORY); // to open a program would be to run it
    const ComUse com;
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, L"explore", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    return result > kLastShellError ? err::ResultCode{} : systemError(result);
}

err::ResultCode openFolderAndSelect(const NativeText& path)
{
    const ComUse com;
    const std::unique_ptr<ITEMIDLIST, ItemListFreer> item(ILCreateFromPathW(path.c_str()));
    if (!item)
        return systemError(ERROR_FILE_NOT_FOUND);
    return systemResult(SHOpenFolderAndSelectItems(item.get(), 0, nullptr, 0));
}

} // namespace quillon::shellhelper
