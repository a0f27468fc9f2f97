#include "platform/SystemProxy.h"

#include "platform/unix/Posix.h"
#include "platform/unix/ProxyLibrary.h"
#include "text/Unicode.h"

#include <array>
#include <optional>
#include <sstream>
#include <string>

namespace quillon::platform {
namespace {

struct SettingsPage
{
    const char* desktop; ///< a name as XDG_CURRENT_DESKTOP has it
    const char* program;
    const char* page;
};

// Of the programs for one desktop, newer ones come first.
constexpr std::array kPages{
    SettingsPage{"KDE", "systemsettings", "kcm_proxy"},
    SettingsPage{"KDE", "systemsettings5", "kcm_proxy"},
    SettingsPage{"KDE", "kcmshell5", "proxy"},
    SettingsPage{"GNOME", "gnome-control-center", "network"},
};

/// Whether `name` is among the names of the desktop, such as "ubuntu:GNOME".
bool isCurrentDesktop(const std::string& name)
{
    std::istringstream names(environmentText("XDG_CURRENT_DESKTOP"));
    for (std::string current; std::getline(names, current, ':');) {
        if (current == name)
            return true;
    }
    return false;
}

struct FoundPage
{
    std::string program; ///< with its path
    std::string page;
};

std::optional<FoundPage> findPage()
{
    for (const SettingsPage& page : kPages) {
        if (!isCurrentDesktop(page.desktop))
            continue;
        if (const std::string program = findProgram(page.program); !program.empty())
            return FoundPage{program, page.page};
    }
    return std::nullopt;
}

} // namespace

// The library asks the desktop's settings, which are the user's, and the environment all in one, so that it
// has nothing more to say about the user. A machine without it simply has no system proxy.
err::ResultCode askMachineProxy(const std::string& url, SystemProxyAnswer& answer)
{
    const std::string proxy = askProxyLibrary("libproxy.so.1", url).value_or(std::string());
    answer = {text::wideFromUtf8(proxy), SystemProxyAnswer::Form::Url};
    return {};
}

err::ResultCode askUserProxy(const std::string& /*url*/, SystemProxyAnswer& answer)
{
    answer = {};
    return {};
}

bool hasSystemProxySettings()
{
    return findPage().has_value();
}

bool showSystemProxySettings()
{
    const auto found = findPage();
    return found && startDetached(found->program, found->page);
}

} // namespace quillon::platform
