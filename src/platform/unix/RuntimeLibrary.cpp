#include "platform/RuntimeLibrary.h"

#include <dlfcn.h>
#include <link.h>

#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>

namespace quillon::platform {
namespace {

// dlopen and dlsym have sentences only, so the numbers are chosen for what their texts say.

/// A library that is there and cannot be loaded is damaged, or lacks another one, which then begins the
/// sentence.
err::ResultCode whyNotLoaded(const std::string& path)
{
    const char* const sentence = dlerror();
    const std::string_view reason = sentence == nullptr ? "" : sentence;
    const bool isMissing =
        reason.starts_with(path + ':') && reason.find(std::strerror(ENOENT)) != std::string_view::npos;
    return err::systemError(isMissing ? ENOENT : ELIBACC);
}

} // namespace

void restrictLibrarySearch() {}

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

bool isLibraryMissing(const err::ResultCode& reason)
{
    return reason == err::systemError(ENOENT);
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
