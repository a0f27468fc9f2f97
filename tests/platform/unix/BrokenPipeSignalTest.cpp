#include "platform/Network.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace quillon::platform {
namespace {

bool isBlocked()
{
    sigset_t blocked;
    sigemptyset(&blocked);
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    return sigismember(&blocked, SIGPIPE) == 1;
}

TEST(BrokenPipeSignalBlock, LetsAWriteFailUntilTheOuterOneEnds)
{
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    {
        const BrokenPipeSignalBlock outer;
        {
            const BrokenPipeSignalBlock inner;
        }
        EXPECT_TRUE(isBlocked());
        EXPECT_LT(write(ends[1], "x", 1), 0);
        EXPECT_EQ(errno, EPIPE);
    }
    EXPECT_FALSE(isBlocked());
    close(ends[1]);
}

} // namespace
} // namespace quillon::platform
