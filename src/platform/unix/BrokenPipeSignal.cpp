#include "platform/BrokenPipeSignal.h"

#include <csignal>

namespace quillon::platform {
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

} // namespace quillon::platform
