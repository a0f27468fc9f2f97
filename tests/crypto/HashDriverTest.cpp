#include "crypto/HashCalculator.h"
#include "crypto/PrintHashResult.h"
#include "crypto/TestDoubles.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string>
#include <vector>

namespace quillon::crypto {
namespace {

using tests::Events;
using tests::MemoryStream;
using tests::RecordingCallback;
using tests::Script;
using tests::ScriptedEngine;

constexpr HashResult kSuccess{};
constexpr HashResult kStopped{{5, 1004}, {}};
constexpr HashResult kRunning{{5, 8}, {}};
constexpr std::uint32_t kEveryChunk = 0;
constexpr std::uint32_t kNever = 0xFFFFFFFF;

class HashDriver : public testing::Test
{
protected:
    HashResult run(MemoryStream& stream, std::int32_t bufferBytes = 4, std::uint32_t intervalMs = kNever)
    {
        return hash.calculate(&stream, bufferBytes, intervalMs, &callback);
    }

    std::string hex() const
    {
        std::string text;
        EXPECT_EQ(hash.getDigestHex(text), kSuccess);
        return text;
    }

    Script script;
    Events& events = script.events;
    internal::HashCalculator<ScriptedEngine> hash{script};
    RecordingCallback callback{events};
};

TEST_F(HashDriver, ANewCalculatorIsIdleAndItsDigestIsZero)
{
    EXPECT_FALSE(hash.isRunning());
    EXPECT_EQ(hex(), "00000000");
    EXPECT_EQ(hash.getLibraryId(), 7U);
    EXPECT_EQ(hash.getAlgorithmId(), 70U);
    EXPECT_EQ(hash.getDigestSize(), 4);
    EXPECT_EQ(hash.getProgress(), 0.0F);
}

TEST_F(HashDriver, AFullRunTakesItsStepsInOrder)
{
    MemoryStream stream("0123456789");
    EXPECT_EQ(run(stream, 4, kEveryChunk), kSuccess);
    EXPECT_EQ(events, (Events{"started", "init", "update 4", "progress", "update 4", "progress", "update 2",
                              "progress", "final", "getDigest", "release", "finished"}));
    EXPECT_EQ(hex(), "0A000000");
    EXPECT_FALSE(callback.stopped);
    EXPECT_EQ(callback.result, kSuccess);
    EXPECT_FALSE(hash.isRunning());
}

TEST_F(HashDriver, AnEmptyStreamGivesTheDigestOfTheEmptyMessageWithoutReading)
{
    for (const std::int64_t size : {0, -1}) {
        events.clear();
        MemoryStream stream("kept unread");
        stream.claimedSize = size;
        EXPECT_EQ(run(stream, 4, kEveryChunk), kSuccess);
        EXPECT_EQ(events,
                  (Events{"started", "init", "update null 0", "final", "getDigest", "release", "finished"}));
        EXPECT_TRUE(stream.counts.empty());
    }
}

TEST_F(HashDriver, ANullStreamOrABufferWithoutRoomIsRefusedWithoutAnyEffect)
{
    MemoryStream first("abc");
    EXPECT_EQ(run(first), kSuccess);
    events.clear();
    const HashResult invalid{{5, 5}, {}};
    EXPECT_EQ(hash.calculate(nullptr, 4, kNever, &callback), invalid);
    EXPECT_EQ(hash.calculate(nullptr), invalid);
    EXPECT_EQ(hash.calculate(nullptr, &callback), invalid);
    MemoryStream second("abcdef");
    EXPECT_EQ(run(second, 0), invalid);
    EXPECT_EQ(run(second, -4), invalid);
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(hex(), "03000000");
}

TEST_F(HashDriver, ASecondRunIsRefusedWhileOneIsGoingOn)
{
    MemoryStream stream("abc");
    MemoryStream other("other");
    stream.onRead = [&] { EXPECT_EQ(run(other), kRunning); };
    EXPECT_EQ(run(stream), kSuccess);
    EXPECT_TRUE(other.counts.empty());
    EXPECT_EQ(events, (Events{"started", "init", "update 3", "final", "getDigest", "release", "finished"}));
}

struct EngineFailure
{
    const char* step;
    HashResult Script::*failing;
    std::string input;
    Events expected;
};

class FailingEngine : public HashDriver, public testing::WithParamInterface<EngineFailure>
{
};

TEST_P(FailingEngine, GivesItsOwnResultAndAZeroDigest)
{
    MemoryStream warmUp("some bytes");
    ASSERT_EQ(run(warmUp), kSuccess);
    events.clear();

    const HashResult failure{{54, 3}, {5, 4000}};
    script.*GetParam().failing = failure;
    MemoryStream stream(GetParam().input);
    EXPECT_EQ(run(stream), failure);
    EXPECT_EQ(events, GetParam().expected);
    EXPECT_EQ(callback.result, failure);
    EXPECT_FALSE(callback.stopped);
    EXPECT_EQ(hex(), "00000000");
    EXPECT_FALSE(hash.isRunning());
}

INSTANTIATE_TEST_SUITE_P(
    Steps, FailingEngine,
    testing::Values(
        EngineFailure{"init", &Script::init, "abc", {"started", "init", "release", "finished"}},
        EngineFailure{
            "update", &Script::update, "abcdef", {"started", "init", "update 4", "release", "finished"}},
        EngineFailure{
            "final", &Script::final, "abc", {"started", "init", "update 3", "final", "release", "finished"}},
        EngineFailure{"getDigest",
                      &Script::getDigest,
                      "abc",
                      {"started", "init", "update 3", "final", "getDigest", "release", "finished"}},
        EngineFailure{"initOfNothing", &Script::init, "", {"started", "init", "release", "finished"}},
        EngineFailure{"updateOfNothing",
                      &Script::update,
                      "",
                      {"started", "init", "update null 0", "release", "finished"}},
        EngineFailure{"getDigestOfNothing",
                      &Script::getDigest,
                      "",
                      {"started", "init", "update null 0", "final", "getDigest", "release", "finished"}}),
    [](const auto& parameter) { return parameter.param.step; });

TEST_F(HashDriver, TheResultOfFinalDoesNotDecideForTheEmptyMessage)
{
    script.final = {{54, 3}, {5, 4001}};
    MemoryStream stream("");
    EXPECT_EQ(run(stream), kSuccess);
}

TEST_F(HashDriver, AFailedReadGivesTheErrorOfTheStreamAndOurs)
{
    MemoryStream stream("0123456789");
    stream.failAt = 8;
    EXPECT_EQ(run(stream, 4, kEveryChunk), (HashResult{MemoryStream::kError, {5, 60}}));
    EXPECT_EQ(events, (Events{"started", "init", "update 4", "progress", "update 4", "progress", "release",
                              "finished"}));
    EXPECT_EQ(hex(), "00000000");
}

TEST_F(HashDriver, AStopEndsTheRunAfterTheChunkInHand)
{
    MemoryStream stream("0123456789");
    stream.onRead = [this] { hash.stop(); };
    EXPECT_EQ(run(stream), kStopped);
    EXPECT_EQ(events, (Events{"started", "init", "update 4", "release", "finished"}));
    EXPECT_TRUE(callback.stopped);
    EXPECT_EQ(callback.result, kStopped);
    EXPECT_EQ(hex(), "00000000");
}

TEST_F(HashDriver, AStopAfterTheLastReadIsToldButComesTooLate)
{
    MemoryStream stream("abc");
    stream.onRead = [this] { hash.stop(); };
    EXPECT_EQ(run(stream), kSuccess);
    EXPECT_TRUE(callback.stopped);
    EXPECT_EQ(hex(), "03000000");
}

TEST_F(HashDriver, TheEmptyMessageIsNotStopped)
{
    callback.onStarted = [this] { hash.stop(); };
    MemoryStream stream("");
    EXPECT_EQ(run(stream), kSuccess);
    EXPECT_TRUE(callback.stopped);
}

TEST_F(HashDriver, AStopBeforeTheRunIsLost)
{
    hash.stop();
    MemoryStream stream("0123456789");
    EXPECT_EQ(run(stream), kSuccess);
    EXPECT_FALSE(callback.stopped);
}

TEST_F(HashDriver, AStreamCutShortIsReadUntilStopAndNeverGivesADigest)
{
    MemoryStream stream("0123");
    stream.claimedSize = 10;
    stream.onRead = [&] {
        if (stream.counts.size() == 1000)
            hash.stop();
    };
    EXPECT_EQ(run(stream), kStopped);
    EXPECT_EQ(stream.counts.size(), 1001U);
    EXPECT_EQ(hex(), "00000000");
}

TEST_F(HashDriver, ReportsTellTheBytesSoFarAndTheirShare)
{
    MemoryStream stream("0123456789");
    EXPECT_EQ(run(stream, 4, kEveryChunk), kSuccess);
    const std::vector<std::pair<std::int64_t, float>> expected{{4, 40.0F}, {8, 80.0F}, {10, 100.0F}};
    EXPECT_EQ(callback.reports, expected);
}

TEST_F(HashDriver, TheFirstChunkIsReportedAndFurtherOnesOnlyAnIntervalLater)
{
    // A second: the machine has been up for longer than that, and the run is shorter.
    MemoryStream stream(std::string(100, 'x'));
    EXPECT_EQ(run(stream, 10, 1000), kSuccess);
    ASSERT_EQ(callback.reports.size(), 1U);
    EXPECT_EQ(callback.reports[0].first, 10);
}

TEST_F(HashDriver, AStreamShorterThanTheBufferIsReportedWholeAndReadInOneExactRequest)
{
    MemoryStream stream("abc");
    EXPECT_EQ(hash.calculate(&stream, &callback), kSuccess);
    EXPECT_EQ(stream.counts, (std::vector<int>{3}));
    ASSERT_EQ(callback.reports.size(), 1U);
    EXPECT_EQ(callback.reports[0].second, 100.0F);
}

TEST_F(HashDriver, AWholeNumberOfBuffersNeedsNoFurtherRead)
{
    MemoryStream stream("01234567");
    EXPECT_EQ(run(stream), kSuccess);
    EXPECT_EQ(stream.counts, (std::vector<int>{4, 4}));
}

TEST_F(HashDriver, TheShortFormsReadThirtyTwoKibibytesAtOnce)
{
    MemoryStream first(std::string(40000, 'x'));
    EXPECT_EQ(hash.calculate(&first), kSuccess);
    EXPECT_EQ(first.counts, (std::vector<int>{32768, 7232}));
    MemoryStream second(std::string(40000, 'x'));
    EXPECT_EQ(hash.calculate(&second, &callback), kSuccess);
    EXPECT_EQ(second.counts, first.counts);
}

TEST_F(HashDriver, TheEngineGetsWhatCameNotWhatWasAskedFor)
{
    MemoryStream stream("0123456");
    stream.mostPerRead = 3;
    EXPECT_EQ(run(stream, 5), kSuccess);
    EXPECT_EQ(stream.counts, (std::vector<int>{5, 4, 1}));
    EXPECT_EQ(hex(), "07000000");
}

TEST_F(HashDriver, AllReadsGoIntoOneBufferAtTheStartOfAPage)
{
    MemoryStream stream(std::string(100, 'x'));
    EXPECT_EQ(run(stream, 10), kSuccess);
    for (const char* const buffer : stream.buffers) {
        EXPECT_EQ(buffer, stream.buffers[0]);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(buffer) % 4096, 0U);
    }
}

TEST_F(HashDriver, ACalculatorCanRunAgain)
{
    MemoryStream first("0123456789");
    MemoryStream second("abc");
    EXPECT_EQ(run(first), kSuccess);
    EXPECT_EQ(run(second), kSuccess);
    EXPECT_EQ(hex(), "03000000");
}

TEST_F(HashDriver, TheDigestOfTheLastRunIsGoneOnceTheNextHasBegun)
{
    MemoryStream first("0123456789");
    MemoryStream second("0123456789");
    second.failAt = 0;
    EXPECT_EQ(run(first), kSuccess);
    EXPECT_FALSE(succeeded(run(second)));
    EXPECT_EQ(hex(), "00000000");
}

TEST_F(HashDriver, TheDigestCannotBeFetchedBeforeTheRunIsOver)
{
    std::array<char, 128> digest{};
    std::string narrow = "kept";
    std::wstring wide = L"kept";
    callback.onFinished = [&] {
        EXPECT_TRUE(hash.isRunning());
        EXPECT_EQ(hash.getDigest(digest.data(), 128), kRunning);
        EXPECT_EQ(hash.getDigestHex(narrow), kRunning);
        EXPECT_EQ(hash.getDigestHex(wide), kRunning);
        EXPECT_EQ(hash.getDigest(nullptr, 128), (HashResult{{5, 6}, {}}));
        EXPECT_EQ(hash.getDigest(digest.data(), 3), (HashResult{{5, 10}, {}}));
    };
    MemoryStream stream("abc");
    EXPECT_EQ(run(stream), kSuccess);
    EXPECT_EQ(narrow, "kept");
    EXPECT_EQ(wide, L"kept");
}

TEST_F(HashDriver, TheDigestIsCopiedToAnyRoomThatIsLargeEnough)
{
    MemoryStream stream("abc");
    EXPECT_EQ(run(stream), kSuccess);
    std::array<char, 6> digest{'?', '?', '?', '?', '?', '?'};
    EXPECT_EQ(hash.getDigest(nullptr, 3), (HashResult{{5, 6}, {}}));
    EXPECT_EQ(hash.getDigest(digest.data(), 3), (HashResult{{5, 10}, {}}));
    EXPECT_EQ(digest[0], '?');
    for (const std::int32_t room : {4, 6}) {
        digest.fill('?');
        EXPECT_EQ(hash.getDigest(digest.data(), room), kSuccess);
        EXPECT_EQ(digest, (std::array<char, 6>{3, 0, 0, 0, '?', '?'})) << room;
    }
    std::wstring wide;
    EXPECT_EQ(hash.getDigestHex(wide), kSuccess);
    EXPECT_EQ(wide, L"03000000");
}

TEST_F(HashDriver, UserDataReachesTheCallbackAndIsNullInTheShortForms)
{
    int marker = 0;
    MemoryStream stream("abc");
    EXPECT_EQ(hash.calculate(&stream, 4, kNever, &callback, &marker), kSuccess);
    EXPECT_EQ(callback.userData, &marker);
    MemoryStream second("abc");
    EXPECT_EQ(run(second), kSuccess);
    EXPECT_EQ(callback.userData, nullptr);
}

TEST_F(HashDriver, ProgressStaysAtZeroDuringARun)
{
    MemoryStream stream("0123456789");
    stream.onRead = [this] { EXPECT_EQ(hash.getProgress(), 0.0F); };
    EXPECT_EQ(run(stream, 4, kEveryChunk), kSuccess);
    EXPECT_EQ(hash.getProgress(), 0.0F);
}

TEST_F(HashDriver, RunningOutOfMemoryLeavesTheCalculatorUnusable)
{
    script.onUpdate = [] { throw std::bad_alloc(); };
    MemoryStream stream("abc");
    EXPECT_THROW(static_cast<void>(run(stream)), std::bad_alloc);
    EXPECT_EQ(events, (Events{"started", "init", "release"}));
    EXPECT_TRUE(hash.isRunning());
    EXPECT_EQ(run(stream), kRunning);
}

} // namespace
} // namespace quillon::crypto
