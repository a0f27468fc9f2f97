#include "platform/unix/Posix.h"

#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace quillon::platform {
namespace {

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

} // namespace

bool isSameFile(const struct stat& a, const struct stat& b) noexcept
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

std::string environmentText(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::vector<std::string> fullPaths(std::string_view list)
{
    std::vector<std::string> paths;
    while (!list.empty()) {
        const std::string_view path = list.substr(0, list.find(':'));
        if (path.starts_with('/'))
            paths.emplace_back(path);
        list.remove_prefix(std::min(path.size() + 1, list.size()));
    }
    return paths;
}

std::string findProgram(std::string_view name)
{
    for (const std::string& folder : fullPaths(environmentText("PATH"))) {
        std::string program = (folder + '/').append(name);
        if (access(program.c_str(), X_OK) == 0)
            return program;
    }
    return {};
}

bool startDetached(std::string program, std::string argument)
{
    const std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
    const pid_t first = fork();
    if (first == 0)
        startFromCopy(program.c_str(), arguments.data());
    int status = 0;
    return first > 0 && retryInterrupted([&] { return waitpid(first, &status, 0); }) == first && status == 0;
}

} // namespace quillon::platform
