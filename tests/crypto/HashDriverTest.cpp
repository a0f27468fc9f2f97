#include "crypto/HashDriver.h"

#include "crypto/HashCalculator.h"
#include "crypto/PrintHashResult.h"
#include "crypto/TestDoubles.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <future>
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
        events.clear();
        return hash.calculate(&stream, bufferBytes, intervalMs, &callback);
    }

    HashResult run(const std::string& bytes, std::int32_t bufferBytes = 4)
    {
        MemoryStream stream(bytes);
        return run(stream, bufferBytes);
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

TEST_F(HashDriver, AFullRunTakesItsStepsInOrderAndTellsTheShareOfEachChunk)
{
    EXPECT_EQ(hex(), "00000000");
    MemoryStream stream("0123456789");
    stream.onRead = [this] { EXPECT_EQ(hash.getProgress(), 0.0F); };
    EXPECT_EQ(run(stream, 4, kEveryChunk), kSuccess);
    EXPECT_EQ(events, (Events{"started", "init", "update 4", "progress", "update 4", "progress", "update 2",
                              "progress", "final", "getDigest", "release", "finished"}));
    const std::vector<std::pair<std::int64_t, float>> expected{{4, 40.0F}, {8, 80.0F}, {10, 100.0F}};
    EXPECT_EQ(callback.reports, expected);
    EXPECT_EQ(hex(), "0A000000");
    EXPECT_FALSE(callback.stopped);
    EXPECT_EQ(callback.result, kSuccess);
    EXPECT_FALSE(hash.isRunning());
    EXPECT_EQ(run("abc"), kSuccess) << "a calculator can run again";
    EXPECT_EQ(hex(), "03000000");
}

TEST_F(HashDriver, AnEmptyStreamGivesTheDigestOfTheEmptyMessageWithoutReading)
{
    script.final = {{54, 3}, {5, 4001}}; // which does not count here
    callback.onStarted = [this] { hash.stop(); };
    for (const std::int64_t size : {0, -1}) {
        MemoryStream stream("kept unread");
        stream.claimedSize = size;
        EXPECT_EQ(run(stream, 4, kEveryChunk), kSuccess);
        EXPECT_EQ(events,
                  (Events{"started", "init", "update null 0", "final", "getDigest", "release", "finished"}));
        EXPECT_TRUE(stream.counts.empty());
        EXPECT_TRUE(callback.stopped);
    }
}

TEST_F(HashDriver, ANullStreamOrABufferWithoutRoomIsRefusedWithoutAnyEffect)
{
    EXPECT_EQ(run("abc"), kSuccess);
    events.clear();
    const HashResult invalid{{5, 5}, {}};
    EXPECT_EQ(hash.calculate(nullptr, 4, kNever, &callback), invalid);
    EXPECT_EQ(hash.calculate(nullptr), invalid);
    EXPECT_EQ(hash.calculate(nullptr, &callback), invalid);
    EXPECT_EQ(run("abcdef", 0), invalid);
    EXPECT_EQ(run("abcdef", -4), invalid);
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(hex(), "03000000");
}

TEST_F(HashDriver, ASecondRunIsRefusedWhileOneIsGoingOn)
{
    MemoryStream stream("abc");
    MemoryStream other("other");
    stream.onRead = [&] { EXPECT_EQ(hash.calculate(&other, 4, kNever, &callback), kRunning); };
    EXPECT_EQ(run(stream), kSuccess);
    EXPECT_TRUE(other.counts.empty());
    EXPECT_EQ(events, (Events{"started", "init", "update 3", "final", "getDigest", "release", "finished"}));
}

TEST_F(HashDriver, AnEngineThatFailsGivesItsOwnResultAndAZeroDigest)
{
    struct Row
    {
        HashResult Script::*failing;
        std::string input;
        Events expected;
    };
    const HashResult failure{{54, 3}, {5, 4000}};
    for (const Row& row : {Row{&Script::init, "abc", {"init"}}, Row{&Script::init, "", {"init"}},
                           Row{&Script::update, "abcdef", {"init", "update 4"}},
                           Row{&Script::update, "", {"init", "update null 0"}},
                           Row{&Script::final, "abc", {"init", "update 3", "final"}},
                           Row{&Script::getDigest, "abc", {"init", "update 3", "final", "getDigest"}},
                           Row{&Script::getDigest, "", {"init", "update null 0", "final", "getDigest"}}}) {
        ASSERT_EQ(run("some bytes"), kSuccess);
        script.*row.failing = failure;
        EXPECT_EQ(run(row.input), failure);
        script.*row.failing = kSuccess;
        Events expected = row.expected;
        expected.insert(expected.begin(), "started");
        expected.insert(expected.end(), {"release", "finished"});
        EXPECT_EQ(events, expected);
        EXPECT_EQ(callback.result, failure);
        EXPECT_FALSE(callback.stopped);
        EXPECT_EQ(hex(), "00000000");
        EXPECT_FALSE(hash.isRunning());
    }
}

TEST_F(HashDriver, AFailedReadGivesTheErrorOfTheStreamAndOursAndAZeroDigest)
{
    EXPECT_EQ(run("0123456789"), kSuccess);
    MemoryStream stream("0123456789");
    stream.failAt = 4;
    EXPECT_EQ(run(stream, 4, kEveryChunk), (HashResult{MemoryStream::kError, {5, 60}}));
    EXPECT_EQ(events, (Events{"started", "init", "update 4", "progress", "release", "finished"}));
    EXPECT_EQ(hex(), "00000000");
}

TEST_F(HashDriver, AStopEndsTheRunAfterTheChunkInHand)
{
    hash.stop(); // comes before the run and is lost
    MemoryStream stream("0123456789");
    stream.onRead = [&] {
        if (stream.counts.size() == 1)
            hash.stop();
    };
    EXPECT_EQ(run(stream), kStopped);
    EXPECT_EQ(events, (Events{"started", "init", "update 4", "update 4", "release", "finished"}));
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

TEST_F(HashDriver, TheFirstChunkIsReportedAndFurtherOnesOnlyAnIntervalLater)
{
    // A second: the machine has been up for longer than that, and the run is shorter.
    MemoryStream stream(std::string(100, 'x'));
    EXPECT_EQ(run(stream, 10, 1000), kSuccess);
    ASSERT_EQ(callback.reports.size(), 1U);
    EXPECT_EQ(callback.reports[0].first, 10);
}

TEST_F(HashDriver, ReadsAskForTheSmallerOfTheBufferAndWhatIsLeft)
{
    struct Row
    {
        std::size_t bytes;
        std::int32_t bufferBytes;
        int mostPerRead;
        std::vector<int> counts;
    };
    for (const Row& row :
         {Row{3, 4, 9, {3}}, Row{8, 4, 9, {4, 4}}, Row{9, 4, 9, {4, 4, 1}}, Row{7, 5, 3, {5, 4, 1}}}) {
        MemoryStream stream(std::string(row.bytes, 'x'));
        stream.mostPerRead = row.mostPerRead;
        EXPECT_EQ(run(stream, row.bufferBytes), kSuccess);
        EXPECT_EQ(stream.counts, row.counts);
        EXPECT_EQ(hex(), "0" + std::to_string(row.bytes) + "000000");
        for (const char* const buffer : stream.buffers) {
            EXPECT_EQ(buffer, stream.buffers[0]);
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(buffer) % 4096, 0U);
        }
    }
}

TEST_F(HashDriver, TheShortFormsReadThirtyTwoKibibytesAtOnceAndHaveNoUserData)
{
    int marker = 0;
    MemoryStream first(std::string(40000, 'x'));
    EXPECT_EQ(hash.calculate(&first, 32768, kNever, &callback, &marker), kSuccess);
    EXPECT_EQ(callback.userData, &marker);
    MemoryStream second(std::string(40000, 'x'));
    EXPECT_EQ(hash.calculate(&second, &callback), kSuccess);
    EXPECT_EQ(callback.userData, nullptr);
    EXPECT_EQ(callback.reports.size(), 1U) << "an interval of 400 ms";
    MemoryStream third(std::string(40000, 'x'));
    EXPECT_EQ(hash.calculate(&third), kSuccess);
    for (const MemoryStream* stream : {&first, &second, &third})
        EXPECT_EQ(stream->counts, (std::vector<int>{32768, 7232}));
}

TEST_F(HashDriver, TheDigestIsGivenOnlyAfterTheRunAndIntoRoomThatIsLargeEnough)
{
    std::array<char, 6> room{};
    std::string narrow = "kept";
    std::wstring wide = L"kept";
    const auto expectRefusals = [&] {
        EXPECT_EQ(hash.getDigest(nullptr, 6), (HashResult{{5, 6}, {}}));
        EXPECT_EQ(hash.getDigest(room.data(), 3), (HashResult{{5, 10}, {}}));
    };
    callback.onFinished = [&] {
        EXPECT_TRUE(hash.isRunning());
        EXPECT_EQ(hash.getDigest(room.data(), 6), kRunning);
        EXPECT_EQ(hash.getDigestHex(narrow), kRunning);
        EXPECT_EQ(hash.getDigestHex(wide), kRunning);
        expectRefusals();
    };
    EXPECT_EQ(run("abc"), kSuccess);
    expectRefusals();
    EXPECT_EQ(room, (std::array<char, 6>{}));
    EXPECT_EQ(narrow, "kept");
    EXPECT_EQ(wide, L"kept");
    for (const std::int32_t size : {4, 6}) {
        room.fill('?');
        EXPECT_EQ(hash.getDigest(room.data(), size), kSuccess);
        EXPECT_EQ(room, (std::array<char, 6>{3, 0, 0, 0, '?', '?'})) << size;
    }
    EXPECT_EQ(hash.getDigestHex(wide), kSuccess);
    EXPECT_EQ(wide, L"03000000");
}

TEST_F(HashDriver, RunningOutOfMemoryLeavesTheCalculatorUnusable)
{
    script.onUpdate = [] { throw std::bad_alloc(); };
    EXPECT_THROW(static_cast<void>(run("abc")), std::bad_alloc);
    EXPECT_EQ(events, (Events{"started", "init", "release"}));
    EXPECT_TRUE(hash.isRunning());
    EXPECT_EQ(run("abc"), kRunning);
}

TEST_F(HashDriver, ARunThatWouldNeverEndIsStoppedFromAnotherThread)
{
    for (int round = 0; round < 20; ++round) {
        MemoryStream endless("");
        endless.claimedSize = 1;
        std::future<HashResult> result =
            std::async(std::launch::async, [&] { return run(endless, 4, kEveryChunk); });
        std::array<char, 16> digest{};
        std::string text;
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (result.wait_for(std::chrono::milliseconds{0}) != std::future_status::ready) {
            ASSERT_LT(std::chrono::steady_clock::now(), limit);
            hash.stop();
            EXPECT_EQ(hash.getProgress(), 0.0F);
            static_cast<void>(hash.isRunning());
            static_cast<void>(hash.getDigest(digest.data(), 16));
            static_cast<void>(hash.getDigestHex(text));
        }
        EXPECT_EQ(result.get(), kStopped);
        EXPECT_TRUE(callback.stopped);
    }
}

TEST(ProgressThrottle, LetsOneReportThroughPerInterval)
{
    struct Call
    {
        std::uint32_t tickMs;
        bool isDue;
    };
    const std::pair<std::uint32_t, std::vector<Call>> rows[] = {
        {400, {{5000, true}, {5000, false}, {5399, false}, {5400, true}, {5799, false}}},
        {400, {{399, false}, {400, true}}},
        // Where the clock wraps a report may come early, and then they go on.
        {400, {{0xFFFFFF9B, true}, {0xFFFFFF9C, true}}},
        {400, {{0xFFFFFED3, true}, {50, false}, {99, true}, {498, false}, {499, true}}},
        {0, {{0, true}, {0, true}}},
    };
    for (const auto& [intervalMs, calls] : rows) {
        internal::ProgressThrottle throttle(intervalMs);
        for (const Call& call : calls)
            EXPECT_EQ(throttle.isDue(call.tickMs), call.isDue) << intervalMs << ' ' << call.tickMs;
    }
}

} // namespace
} // namespace quillon::crypto
