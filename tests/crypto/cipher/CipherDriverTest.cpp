#include "crypto/cipher/CipherTestTools.h"
#include "platform/Ticks.h"

#include <new>
#include <type_traits>
#include <utility>

namespace {

/// Which of the coming allocations that may answer null does so; none at 0.
int failingAllocation = 0;

} // namespace

void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept
{
    if (failingAllocation > 0 && --failingAllocation == 0)
        return nullptr;
    try {
        return ::operator new[](bytes);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace quillon::crypto {
namespace {

using tests::CollectingOutput;
using tests::Events;
using tests::kNever;
using tests::MemoryStream;
using tests::pattern;
using tests::RecordingCallback;

using Key = std::vector<char>;

/// Runs of 200 bytes in chunks of 64, in either direction.
template <class Cipher>
class CipherDriver : public testing::Test
{
protected:
    static constexpr bool kEnciphers = std::is_same_v<Cipher, tests::Encryptor>;

    static std::string container() { return tests::passed<tests::Encryptor>(pattern(200), "").bytes; }

    HashResult run(std::uint32_t intervalMs = kNever) { return run(input, output, 64, intervalMs); }

    HashResult run(MemoryStream& from, CollectingOutput& to, std::int32_t bufferBytes = 64,
                   std::uint32_t intervalMs = kNever)
    {
        return pass(cipher, &callback, &from, &to, key, iv, bufferBytes, intervalMs);
    }

    const std::string source = kEnciphers ? pattern(200) : container();
    const std::string whole = kEnciphers ? container() : pattern(200);
    const Key key = Key(56);
    const Key iv = Key(8);
    Cipher cipher;
    MemoryStream input{source};
    CollectingOutput output;
    Events events;
    RecordingCallback callback{events};
};

using Ciphers = testing::Types<tests::Encryptor, tests::Decryptor>;
TYPED_TEST_SUITE(CipherDriver, Ciphers);

TYPED_TEST(CipherDriver, AllFormsGiveTheSameAndAnEmptyPasswordStandsForAZeroKey)
{
    const auto form = [this](const auto&... arguments) {
        MemoryStream stream(this->source);
        CollectingOutput sink;
        EXPECT_EQ(pass(this->cipher, &this->callback, &stream, &sink, arguments...), HashResult{});
        EXPECT_EQ(sink.bytes, this->whole);
        EXPECT_EQ(stream.counts.back(), static_cast<int>(this->source.size()));
    };
    form(this->key);
    form(this->key, this->iv);
    form(this->key, this->iv, 32768, 400U);
    form("");
    form("", 23U);
    form("", 23U, this->iv, 32768, 400U);
    EXPECT_EQ(this->events.size(), 12U);
}

// Each row is wrong in all that the rows below it are, so the order of the tests shows too.
TYPED_TEST(CipherDriver, ArgumentsAreCheckedInOrderAndWithoutAnyEffect)
{
    struct Row
    {
        bool hasInput, hasOutput;
        std::int32_t bufferBytes;
        std::size_t keyBytes, ivBytes;
        std::uint32_t code;
    };
    const auto refuseAll = [this] {
        for (const Row& row : {Row{false, false, 7, 55, 7, 17}, Row{true, false, 7, 55, 7, 18},
                               Row{true, true, 7, 55, 7, 4060}, Row{true, true, -64, 55, 7, 4060},
                               Row{true, true, 8, 55, 7, 4040}, Row{true, true, 8, 57, 7, 4040},
                               Row{true, true, 8, 56, 7, 4041}, Row{true, true, 8, 56, 9, 4041},
                               Row{true, true, 8, 56, 8, 8}}) {
            MemoryStream other("unread");
            CollectingOutput unwritten;
            RecordingCallback silent(this->events);
            EXPECT_EQ(pass(this->cipher, &silent, row.hasInput ? &other : nullptr,
                           row.hasOutput ? &unwritten : nullptr, Key(row.keyBytes), Key(row.ivBytes),
                           row.bufferBytes, kNever),
                      (HashResult{{5, row.code}, {}}));
            EXPECT_TRUE(other.counts.empty());
        }
    };
    this->callback.onStarted = refuseAll;
    EXPECT_EQ(this->run(), HashResult{});
    EXPECT_EQ(this->output.bytes, this->whole);
    EXPECT_EQ(this->events, (Events{"started", "finished"}));
}

TYPED_TEST(CipherDriver, APasswordThatGivesNoKeyIsRefused)
{
    const auto withPassword = [this](const char* password, std::uint32_t algorithmId) {
        return pass(this->cipher, &this->callback, &this->input, &this->output, password, algorithmId);
    };
    EXPECT_EQ(withPassword("x", 999), (HashResult{{5, 70}, {5, 4042}}));
    EXPECT_EQ(withPassword("", 105), (HashResult{{5, 70}, {5, 4042}}));
    EXPECT_EQ(withPassword(nullptr, 23), (HashResult{{5, 6}, {5, 4042}}));
    EXPECT_EQ(withPassword("x", 22), (HashResult{{5, 4040}, {}}));
    EXPECT_TRUE(this->events.empty());
}

TEST(PasswordKey, TheSizeOfTheKeyChoosesTheHash)
{
    for (const auto& [keyBytes, hash] : {std::pair{28, 20U}, {29, 21U}, {32, 21U}, {48, 22U}, {49, 23U}})
        EXPECT_EQ(internal::hashForKeySize(keyBytes), hash);
}

TYPED_TEST(CipherDriver, AnEmptyInputSucceedsWithoutWriting)
{
    for (const std::int64_t size : {0, -1}) {
        this->events.clear();
        this->input.claimedSize = size;
        EXPECT_EQ(this->run(), HashResult{});
        EXPECT_EQ(this->events, (Events{"started", "finished"}));
        EXPECT_TRUE(this->input.counts.empty());
        EXPECT_EQ(this->output.bytes, "");
        EXPECT_FALSE(this->cipher.isRunning());
    }
}

TYPED_TEST(CipherDriver, ReadsAskForTheSmallerOfTheChunkAndWhatIsLeft)
{
    EXPECT_EQ(this->run(this->input, this->output, 71), HashResult{});
    EXPECT_EQ(this->input.counts, (std::vector<int>{this->kEnciphers ? 8 : 64, 64, 64, 64}));
    EXPECT_EQ(this->output.bytes, this->whole);
}

TYPED_TEST(CipherDriver, StreamsThatTakeAndGiveLittleAtATimeChangeNothing)
{
    this->input.mostPerRead = 5;
    this->output.mostPerWrite = 3;
    EXPECT_EQ(this->run(), HashResult{});
    EXPECT_EQ(this->output.bytes, this->whole);
}

TYPED_TEST(CipherDriver, AFailingStreamIsToldWithItsErrorAndTheNextRunIsWhole)
{
    const HashResult unread{{5, 60}, MemoryStream::kError};
    for (const std::size_t at : {0U, 100U}) {
        MemoryStream failing(this->source);
        failing.failAt = at;
        MemoryStream stalled(this->source.substr(0, at));
        stalled.claimedSize = this->input.claimedSize;
        MemoryStream good(this->source);
        CollectingOutput full;
        full.room = at;
        EXPECT_EQ(this->run(failing, this->output), unread);
        EXPECT_EQ(this->run(stalled, this->output), unread);
        EXPECT_EQ(this->run(good, full), (HashResult{{5, 61}, CollectingOutput::kError}));
        good.onRead = [] { throw std::bad_alloc(); };
        EXPECT_THROW(static_cast<void>(this->run(good, full)), std::bad_alloc);
        EXPECT_FALSE(this->cipher.isRunning());
    }
    this->output.bytes.clear();
    EXPECT_EQ(this->run(), HashResult{});
    EXPECT_EQ(this->output.bytes, this->whole);
}

TYPED_TEST(CipherDriver, EachBufferThatIsNotToBeHadIsTold)
{
    for (const int buffer : {1, 2}) {
        failingAllocation = buffer;
        const HashResult missing{{5, static_cast<std::uint32_t>(12 + buffer)}, {}};
        EXPECT_EQ(this->run(), missing);
        EXPECT_EQ(this->callback.result, missing);
        EXPECT_TRUE(this->input.counts.empty());
    }
    EXPECT_EQ(this->run(), HashResult{});
}

TYPED_TEST(CipherDriver, AStopEndsTheRunAfterTheChunkInHandAndWithSuccess)
{
    this->cipher.stop(); // comes too early and is lost
    this->input.onRead = [this] {
        if (this->input.counts.size() == 1)
            this->cipher.stop();
    };
    EXPECT_EQ(this->run(0), HashResult{});
    EXPECT_EQ(this->output.bytes, this->whole.substr(0, this->kEnciphers ? 128 : 72));
    EXPECT_TRUE(this->callback.stopped);
    EXPECT_EQ(this->callback.result, HashResult{});
    EXPECT_TRUE(this->callback.reports.empty());
}

TYPED_TEST(CipherDriver, EveryChunkButTheFirstIsReportedWithItsShareOfTheInput)
{
    this->input.onRead = [] {
        const std::uint32_t now = platform::tickCountMs();
        while (platform::tickCountMs() == now) {
        }
    };
    this->callback.onFinished = [this] { EXPECT_TRUE(this->cipher.isRunning()); };
    EXPECT_EQ(this->run(0), HashResult{});
    const std::vector<std::pair<std::int64_t, float>> enciphering{{72, 36.0F}, {136, 68.0F}, {200, 100.0F}};
    const std::vector<std::pair<std::int64_t, float>> deciphering{{128, 50.0F}, {192, 75.0F}, {256, 100.0F}};
    EXPECT_EQ(this->callback.reports, this->kEnciphers ? enciphering : deciphering);
    EXPECT_EQ(this->cipher.getProgress(), 0.0F);

    // A second: the machine has been up for longer than that, and the run is shorter.
    MemoryStream quick(this->source);
    EXPECT_EQ(this->run(quick, this->output, 64, 1000), HashResult{});
    EXPECT_EQ(this->callback.reports.size(), 4U);
}

} // namespace
} // namespace quillon::crypto
