#include "platform/unix/ProxyLibrary.h"

#include "platform/RuntimeLibrary.h"

#include <memory>

namespace quillon::platform {
namespace {

// The prototypes are those of proxy.h, libproxy's public header, from 0.4.16 on.
using Factory = void;
using NewFactory = Factory*();
using FreeFactory = void(Factory*);
using GetProxies = char**(Factory*, const char* url);
using FreeProxies = void(char** proxies);

struct ProxyFunctions
{
    NewFactory* newFactory = nullptr;
    FreeFactory* freeFactory = nullptr;
    GetProxies* getProxies = nullptr;
    FreeProxies* freeProxies = nullptr;
};

template <class Function>
bool bind(const RuntimeLibrary& library, const char* name, Function*& function)
{
    function = reinterpret_cast<Function*>(findLibrarySymbol(library, name));
    return function != nullptr;
}

bool bindAll(const RuntimeLibrary& library, ProxyFunctions& functions)
{
    return bind(library, "px_proxy_factory_new", functions.newFactory) &&
           bind(library, "px_proxy_factory_free", functions.freeFactory) &&
           bind(library, "px_proxy_factory_get_proxies", functions.getProxies) &&
           bind(library, "px_proxy_factory_free_proxies", functions.freeProxies);
}

} // namespace

std::optional<std::string> askProxyLibrary(const std::string& library, const std::string& url)
{
    const RuntimeLibrary loaded = loadRuntimeLibrary(library);
    ProxyFunctions functions;
    if (!bindAll(loaded, functions))
        return std::nullopt;
    // Its plug-ins bring desktop libraries along, which do not outlive being unloaded and loaded again.
    keepRuntimeLibrary(loaded);
    const std::unique_ptr<Factory, FreeFactory*> factory(functions.newFactory(), functions.freeFactory);
    if (!factory)
        return std::nullopt;
    const std::unique_ptr<char*, FreeProxies*> proxies(functions.getProxies(factory.get(), url.c_str()),
                                                       functions.freeProxies);
    if (!proxies || *proxies == nullptr)
        return std::nullopt;
    return std::string(*proxies);
}

} // namespace quillon::platform
