#include "crypto/cipher/CipherTestTools.h"
#include "platform/Clock.h"

#include <array>
#include <new>
#include <type_traits>
#include <utility>

namespace quillon::crypto {
namespace {

using tests::CollectingOutput;
using tests::Events;
using tests::kNever;
using tests::MemoryStream;
using tests::patternBytes;
using tests::RecordingCallback;

using Key = std::vector<char>;

/// Runs of 200 bytes in chunks of 64, in either direction.
template <class Cipher>
class CipherDriver : public testing::Test
{
protected:
    static constexpr bool kEnciphers = std::is_same_v<Cipher, tests::Encryptor>;

    static std::string container() { return tests::passed<tests::Encryptor>(patternBytes(200), "").bytes; }

    HashResult run(std::uint32_t intervalMs = kNever) { return run(input, output, 64, intervalMs); }

    HashResult run(MemoryStream& from, CollectingOutput& to, std::int32_t bufferBytes = 64,
                   std::uint32_t intervalMs = kNever)
    {
        return pass(cipher, &callback, &from, &to, key, iv, bufferBytes, intervalMs);
    }

    const std::string source = kEnciphers ? patternBytes(200) : container();
    const std::string whole = kEnciphers ? container() : patternBytes(200);
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

using Bytes = std::array<char, 57>;

template <class Engine>
class SymmetricEngine : public testing::Test
{
protected:
    HashResult setKey() { return engine.setKey(bytes.data(), 56, bytes.data(), 8); }

    Engine engine;
    Bytes bytes{};
};

using Engines =
    testing::Types<cryptopp::internal::BlowfishEncryptorEngine, cryptopp::internal::BlowfishDecryptorEngine>;
TYPED_TEST_SUITE(SymmetricEngine, Engines);

// Each row is wrong in all that the rows below it are, so the order of the tests shows too.
TYPED_TEST(SymmetricEngine, AKeyIsCheckedInOrder)
{
    struct Row
    {
        bool hasKey, hasIv;
        std::int32_t keyBytes, ivBytes;
        std::uint32_t code;
    };
    EXPECT_FALSE(this->engine.isInitialised());
    ASSERT_EQ(this->setKey(), HashResult{});
    EXPECT_TRUE(this->engine.isInitialised());
    const char* const data = this->bytes.data();
    for (const Row& row :
         {Row{false, true, 55, 7, 6}, Row{true, false, 55, 7, 6}, Row{true, true, 55, 7, 4040},
          Row{true, true, 57, 7, 4040}, Row{true, true, 56, 7, 4041}, Row{true, true, 56, 9, 4041},
          Row{true, true, 56, 8, 4007}}) {
        EXPECT_EQ(this->engine.setKey(row.hasKey ? data : nullptr, row.keyBytes, row.hasIv ? data : nullptr,
                                      row.ivBytes),
                  (HashResult{{5, row.code}, {}}));
    }
    this->engine.release();
    EXPECT_FALSE(this->engine.isInitialised());
    EXPECT_EQ(this->setKey(), HashResult{});
}

TYPED_TEST(SymmetricEngine, PiecesAreCheckedInOrderAndOtherwiseLeftAlone)
{
    struct Row
    {
        bool hasInput;
        std::int32_t length;
        bool hasOutput;
        std::int32_t size;
        std::uint32_t code;
    };
    Bytes output{};
    std::int32_t count = -1;
    const auto process = [&](const Row& row) {
        return this->engine.process(row.hasInput ? this->bytes.data() : nullptr, row.length,
                                    row.hasOutput ? output.data() : nullptr, row.size, &count);
    };
    EXPECT_EQ(process({false, 0, false, 0, 4006}), (HashResult{{5, 4006}, {}}));
    ASSERT_EQ(this->setKey(), HashResult{});
    for (const Row& row :
         {Row{false, 8, false, 0, 0}, Row{true, 0, false, 0, 0}, Row{true, -8, false, 0, 0},
          Row{true, 12, false, 8, 16}, Row{true, 12, true, 0, 16}, Row{true, 12, true, 11, 21},
          Row{true, 16, true, -1, 21}, Row{true, 12, true, 57, 4000}}) {
        EXPECT_EQ(process(row), row.code == 0 ? HashResult{} : (HashResult{{5, row.code}, {}}));
        EXPECT_EQ(count, -1);
        EXPECT_EQ(output, Bytes{});
    }
    EXPECT_EQ(process({true, 16, true, 16, 0}), HashResult{});
    EXPECT_EQ(count, 16);
    EXPECT_NE(output, Bytes{});
}

} // namespace
} // namespace quillon::crypto
