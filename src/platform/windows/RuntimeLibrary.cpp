#include "platform/RuntimeLibrary.h"

#include "text/Unicode.h"

#include <windows.h>

#include <filesystem>
#include <utility>

namespace quillon::platform {
namespace {

HMODULE moduleOf(const RuntimeLibrary& library)
{
    return static_cast<HMODULE>(library.get());
}

/// Where libraries come from: nothing else is trusted.
constexpr DWORD kTrustedFolders = LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;

} // namespace

void restrictLibrarySearch()
{
    SetDefaultDllDirectories(kTrustedFolders);
}

void RuntimeLibraryCloser::operator()(void* library) const noexcept
{
    FreeLibrary(static_cast<HMODULE>(library));
}

std::string runtimeLibraryFileName(const std::string& name)
{
    return name + ".dll";
}

err::ResultCode loadRuntimeLibrary(const std::string& path, RuntimeLibrary& library)
{
    const std::filesystem::path name = std::filesystem::path(text::wideFromUtf8(path)).make_preferred();
    // Libraries that one with a folder needs are looked for beside it, too.
    const DWORD folders = kTrustedFolders | (name.is_absolute() ? LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR : 0);
    RuntimeLibrary loaded(LoadLibraryExW(name.c_str(), nullptr, folders));
    if (!loaded)
        return err::systemError(GetLastError());
    library = std::move(loaded);
    return {};
}

RuntimeLibrary loadRuntimeLibrary(const std::string& path)
{
    RuntimeLibrary library;
    static_cast<void>(loadRuntimeLibrary(path, library));
    return library;
}

bool isLibraryMissing(const err::ResultCode& reason)
{
    return reason == err::systemError(ERROR_MOD_NOT_FOUND);
}

err::ResultCode findLibrarySymbol(const RuntimeLibrary& library, const char* name, void*& address)
{
    address = nullptr;
    if (!library)
        return err::systemError(ERROR_INVALID_HANDLE);
    address = reinterpret_cast<void*>(GetProcAddress(moduleOf(library), name));
    return address == nullptr ? err::systemError(GetLastError()) : err::ResultCode{};
}

void* findLibrarySymbol(const RuntimeLibrary& library, const char* name)
{
    return library ? reinterpret_cast<void*>(GetProcAddress(moduleOf(library), name)) : nullptr;
}

void keepRuntimeLibrary(const RuntimeLibrary& library)
{
    HMODULE same = nullptr;
    // Any address within the library names it, and its handle is the first.
    if (library)
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                           static_cast<LPCWSTR>(library.get()), &same);
}

} // namespace quillon::platform
