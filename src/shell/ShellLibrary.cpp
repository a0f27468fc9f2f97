#include "shell/ShellLibrary.h"

#include <utility>

using namespace quillon;

namespace {

/// Binds names until the first that is missing.
class Binder
{
public:
    explicit Binder(const platform::RuntimeLibrary& library)
        : m_library(library)
    {
    }

    template <class Function>
    void bind(const char* name, Function& function)
    {
        if (!err::succeeded(m_result))
            return;
        void* address = nullptr;
        m_result = platform::findLibrarySymbol(m_library, name, address);
        function = reinterpret_cast<Function>(address);
    }

    [[nodiscard]] err::ResultCode result() const { return m_result; }

private:
    const platform::RuntimeLibrary& m_library;
    err::ResultCode m_result;
};

err::ResultCode bindAll(ShellLibrary& bound)
{
    Binder binder(bound.module);
    binder.bind("qxshell_resolveShellError", bound.resolveShellError);
    binder.bind("qxshell_deleteDir", bound.deleteDir);
    binder.bind("qxshell_deleteDirT", bound.deleteDirT);
    binder.bind("qxshell_deleteDirW", bound.deleteDirW);
    binder.bind("qxshell_existsShellContextMenuForUser", bound.existsShellContextMenuForUser);
    binder.bind("qxshell_createShellContextMenuForUser", bound.createShellContextMenuForUser);
    binder.bind("qxshell_removeShellContextMenuForUser", bound.removeShellContextMenuForUser);
    binder.bind("qxshell_existsShellContextMenuForUserT", bound.existsShellContextMenuForUserT);
    binder.bind("qxshell_createShellContextMenuForUserT", bound.createShellContextMenuForUserT);
    binder.bind("qxshell_removeShellContextMenuForUserT", bound.removeShellContextMenuForUserT);
    binder.bind("qxshell_existsShellContextMenuForUserW", bound.existsShellContextMenuForUserW);
    binder.bind("qxshell_createShellContextMenuForUserW", bound.createShellContextMenuForUserW);
    binder.bind("qxshell_removeShellContextMenuForUserW", bound.removeShellContextMenuForUserW);
    binder.bind("qxshell_openDirAndSelectItem", bound.openDirAndSelectItem);
    binder.bind("qxshell_openDirAndSelectItemT", bound.openDirAndSelectItemT);
    binder.bind("qxshell_openDirAndSelectItemW", bound.openDirAndSelectItemW);
    binder.bind("qxshell_openDir", bound.openDir);
    binder.bind("qxshell_openDirT", bound.openDirT);
    binder.bind("qxshell_openDirW", bound.openDirW);
    binder.bind("qxshell_createShellLink", bound.createShellLink);
    binder.bind("qxshell_createShellLinkT", bound.createShellLinkT);
    binder.bind("qxshell_createShellLinkW", bound.createShellLinkW);
    return binder.result();
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
