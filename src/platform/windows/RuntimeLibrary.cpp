#include "platform/RuntimeLibrary.h"

#include "text/Unicode.h"

#include <windows.h>

#include <utility>

namespace quillon::platform {
namespace {

HMODULE moduleOf(const RuntimeLibrary& library)
{
    return static_cast<HMODULE>(library.get());
}

} // namespace

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
    const std::wstring name = text::wideFromUtf8(path);
    // Libraries that this one needs are looked for beside it, not beside whatever the process started in.
    RuntimeLibrary loaded(LoadLibraryExW(name.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
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
