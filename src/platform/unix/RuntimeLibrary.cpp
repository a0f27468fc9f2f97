#include "platform/RuntimeLibrary.h"

#include <dlfcn.h>
#include <link.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quillon::platform {
namespace {

// dlopen and dlsym have sentences only, so the numbers are chosen for what their texts say.

/// A library that is there and cannot be loaded is damaged, or lacks another one.
err::ResultCode whyNotLoaded(const std::string& path)
{
    std::error_code ignored;
    const bool isThere = path.find('/') != std::string::npos && std::filesystem::exists(path, ignored);
    return err::systemError(isThere ? ELIBACC : ENOENT);
}

} // namespace

void RuntimeLibraryCloser::operator()(void* library) const noexcept
{
    dlclose(library);
}

std::string runtimeLibraryFileName(const std::string& name)
{
    return "lib" + name + ".so";
}

err::ResultCode loadRuntimeLibrary(const std::string& path, RuntimeLibrary& library)
{
    RuntimeLibrary loaded(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!loaded)
        return whyNotLoaded(path);
    library = std::move(loaded);
    return {};
}

RuntimeLibrary loadRuntimeLibrary(const std::string& path)
{
    return RuntimeLibrary(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
}

err::ResultCode findLibrarySymbol(const RuntimeLibrary& library, const char* name, void*& address)
{
    address = findLibrarySymbol(library, name);
    return address == nullptr ? err::systemError(ENOSYS) : err::ResultCode{};
}

void* findLibrarySymbol(const RuntimeLibrary& library, const char* name)
{
    return library ? dlsym(library.get(), name) : nullptr;
}

void keepRuntimeLibrary(const RuntimeLibrary& library)
{
    link_map* map = nullptr;
    if (!library || dlinfo(library.get(), RTLD_DI_LINKMAP, &map) != 0)
        return;
    // The mark stays when this second handle is given back.
    if (void* const marked = dlopen(map->l_name, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE); marked != nullptr)
        dlclose(marked);
}

} // namespace quillon::platform
