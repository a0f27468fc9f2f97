#include "platform/RuntimeLibrary.h"

#include "text/Unicode.h"

#include <windows.h>

namespace quillon::platform {

void RuntimeLibraryCloser::operator()(void* library) const noexcept
{
    FreeLibrary(static_cast<HMODULE>(library));
}

RuntimeLibrary loadRuntimeLibrary(const std::string& path)
{
    // Libraries that this one needs are looked for beside it, not beside whatever the process started in.
    return RuntimeLibrary(
        LoadLibraryExW(text::wideFromUtf8(path).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
}

void* findLibrarySymbol(const RuntimeLibrary& library, const char* name)
{
    return library ? reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library.get()), name))
                   : nullptr;
}

} // namespace quillon::platform
