#include "platform/Network.h"

#include "platform/Process.h"

#include <sys/socket.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace quillon::platform {

NativeSocket openSocket(int family, int type, int protocol) noexcept
{
    return socket(family, type | SOCK_CLOEXEC, protocol);
}

void shutDownSocket(NativeSocket socket) noexcept
{
    shutdown(socket, SHUT_RDWR);
}

void closeSocket(NativeSocket socket) noexcept
{
    close(socket);
}

namespace {

sigset_t brokenPipe() noexcept
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    return set;
}

} // namespace

BrokenPipeSignalBlock::BrokenPipeSignalBlock() noexcept
{
    const sigset_t set = brokenPipe();
    sigset_t former;
    sigemptyset(&former);
    m_isOurs = pthread_sigmask(SIG_BLOCK, &set, &former) == 0 && sigismember(&former, SIGPIPE) == 0;
}

BrokenPipeSignalBlock::~BrokenPipeSignalBlock()
{
    if (!m_isOurs)
        return;
    const sigset_t set = brokenPipe();
    const timespec noWait = {};
    // One that waits for the thread would come as soon as the signal is let through again.
    while (sigtimedwait(&set, nullptr, &noWait) == SIGPIPE) {
    }
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

std::vector<std::string> curlLibraryPaths()
{
    // The number stands for the binary interface, which has been the same since release 7.16 of 2006.
    const std::string name = "libcurl.so.4";
    const std::filesystem::path program = programPath();
    return {(program.parent_path() / name).string(), name};
}

} // namespace quillon::platform
