#include "platform/RuntimeLibrary.h"

#include <dlfcn.h>

namespace quillon::platform {

void RuntimeLibraryCloser::operator()(void* library) const noexcept
{
    dlclose(library);
}

RuntimeLibrary loadRuntimeLibrary(const std::string& path)
{
    return RuntimeLibrary(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
}

void* findLibrarySymbol(const RuntimeLibrary& library, const char* name)
{
    return library ? dlsym(library.get(), name) : nullptr;
}

} // namespace quillon::platform
