#include "crypto/HashCalculator.h"
#include "crypto/PrintHashResult.h"
#include "crypto/TestDoubles.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <future>
#include <string>

namespace quillon::crypto {
namespace {

using tests::MemoryStream;
using tests::RecordingCallback;
using tests::Script;
using tests::ScriptedEngine;

constexpr std::chrono::seconds kLimit{30};

/// Asks everything that may be asked from another thread, and stops the run until it has ended.
void pester(IHash& hash, const std::future<HashResult>& run)
{
    std::array<char, 16> digest{};
    std::string text;
    const auto deadline = std::chrono::steady_clock::now() + kLimit;
    while (run.wait_for(std::chrono::milliseconds{0}) != std::future_status::ready) {
        ASSERT_LT(std::chrono::steady_clock::now(), deadline);
        hash.stop();
        EXPECT_EQ(hash.getProgress(), 0.0F);
        static_cast<void>(hash.isRunning());
        static_cast<void>(hash.getDigest(digest.data(), 16));
        static_cast<void>(hash.getDigestHex(text));
    }
}

TEST(HashDriverThreads, ARunThatWouldNeverEndIsStoppedFromAnotherThread)
{
    for (int round = 0; round < 20; ++round) {
        Script script;
        internal::HashCalculator<ScriptedEngine> hash(script);
        RecordingCallback callback(script.events);
        MemoryStream endless("");
        endless.claimedSize = 1;
        std::future<HashResult> run =
            std::async(std::launch::async, [&] { return hash.calculate(&endless, 4, 0, &callback); });
        pester(hash, run);
        EXPECT_EQ(run.get(), (HashResult{{5, 1004}, {}}));
        EXPECT_TRUE(callback.stopped);
        EXPECT_FALSE(hash.isRunning());
    }
}

} // namespace
} // namespace quillon::crypto
