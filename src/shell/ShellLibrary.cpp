#include "shell/ShellLibrary.h"

#include <type_traits>
#include <utility>

using namespace quillon;

namespace {

/// Binds the functions until the first that is missing.
err::ResultCode bindAll(ShellLibrary& bound)
{
    err::ResultCode result;
    const auto bind = [&](const char* name, auto& function) {
        void* address = nullptr;
        if (err::succeeded(result))
            result = platform::findLibrarySymbol(bound.module, name, address);
        function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(address);
    };
#define QXSHELL_BIND(family, suffix, Text) bind("qxshell_" #family #suffix, bound.family##suffix);
    QXSHELL_FUNCTIONS(QXSHELL_BIND)
#undef QXSHELL_BIND
    return result;
}

} // namespace

err::ResultCode loadShellLibrary(const std::string& path, ShellLibrary& library)
{
    ShellLibrary bound;
    err::ResultCode result = platform::loadRuntimeLibrary(path, bound.module);
    if (err::succeeded(result))
        result = bindAll(bound);
    if (err::succeeded(result))
        library = std::move(bound);
    return result;
}
