#include "platform/SystemProxy.h"

#include "platform/unix/ProxyLibrary.h"
#include "text/Unicode.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <sstream>
#include <string>

namespace quillon::platform {

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

std::string environmentText(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

/// The names of the desktop, such as "ubuntu:GNOME".
bool isCurrentDesktop(const std::string& name)
{
    std::istringstream names(environmentText("XDG_CURRENT_DESKTOP"));
    for (std::string current; std::getline(names, current, ':');) {
        if (current == name)
            return true;
    }
    return false;
}

/// The full name of a program that the search path leads to; empty where there is none.
std::string findProgram(const std::string& name)
{
    std::istringstream folders(environmentText("PATH"));
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (folder.empty())
            continue;
        folder.append("/").append(name);
        if (access(folder.c_str(), X_OK) == 0)
            return folder;
    }
    return {};
}

/// Runs in a copy of a process with threads: only calls that take no lock are allowed here.
[[noreturn]] void startFromCopy(const char* program, char* const* arguments)
{
    setsid();
    // The first copy ends at once, so that the second is nobody's child here and leaves nothing behind.
    const pid_t second = fork();
    if (second == 0) {
        execv(program, arguments);
        _exit(127);
    }
    _exit(second < 0 ? 1 : 0);
}

bool startDetached(std::string program, std::string argument)
{
    const std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
    const pid_t first = fork();
    if (first == 0)
        startFromCopy(program.c_str(), arguments.data());
    int status = 0;
    while (first > 0 && waitpid(first, &status, 0) < 0 && errno == EINTR) {
    }
    return first > 0 && status == 0;
}

} // namespace

bool showSystemProxySettings()
{
    for (const SettingsPage& page : kPages) {
        if (!isCurrentDesktop(page.desktop))
            continue;
        if (const std::string program = findProgram(page.program); !program.empty())
            return startDetached(program, page.page);
    }
    return false;
}

} // namespace quillon::platform
