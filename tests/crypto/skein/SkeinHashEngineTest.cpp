#include "crypto/skein/SkeinHashEngines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

namespace {

using namespace quillon;
using crypto::HashResult;
using crypto::IHashEngine;

constexpr HashResult kNotInitialised{{5, 4006}, {0, 0}};
constexpr HashResult kSuccess{};

template <class Engine>
std::unique_ptr<IHashEngine> makeEngine()
{
    return std::make_unique<Engine>();
}

struct Row
{
    std::unique_ptr<IHashEngine> (*make)();
    std::uint32_t algorithmId;
    std::int32_t digestSize;
    std::size_t blockBytes;
    const char* emptyMessageStart; ///< the first bytes of the digest of the empty message
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << "algorithm " << row.algorithmId;
}

std::vector<unsigned char> digestOf(const IHashEngine& engine)
{
    std::vector<unsigned char> digest(static_cast<std::size_t>(engine.getDigestSize()));
    EXPECT_EQ(engine.getDigest(digest.data(), engine.getDigestSize()), kSuccess);
    return digest;
}

std::vector<unsigned char> digestInPieces(IHashEngine& engine, const std::vector<unsigned char>& message,
                                          std::size_t pieceBytes)
{
    EXPECT_EQ(engine.init(), kSuccess);
    for (std::size_t done = 0; done < message.size(); done += pieceBytes) {
        const auto count = static_cast<std::int32_t>(std::min(pieceBytes, message.size() - done));
        EXPECT_EQ(engine.update(message.data() + done, count), kSuccess);
    }
    EXPECT_EQ(engine.final(), kSuccess);
    return digestOf(engine);
}

std::vector<unsigned char> message(std::size_t byteCount)
{
    std::vector<unsigned char> bytes(byteCount);
    std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(7));
    return bytes;
}

std::string hexStart(const std::vector<unsigned char>& bytes)
{
    std::string hex;
    for (std::size_t i = 0; i < 4; ++i) {
        for (const int shift : {4, 0})
            hex += "0123456789ABCDEF"[(bytes[i] >> shift) & 0xF];
    }
    return hex;
}

class SkeinHashEngine : public testing::TestWithParam<Row>
{
protected:
    const std::unique_ptr<IHashEngine> m_engine = GetParam().make();
};

TEST_P(SkeinHashEngine, NamesItselfByTheIdsOfTheCatalogue)
{
    EXPECT_EQ(m_engine->getLibraryId(), 300U);
    EXPECT_EQ(m_engine->getAlgorithmId(), GetParam().algorithmId);
    EXPECT_EQ(m_engine->getDigestSize(), GetParam().digestSize);
    EXPECT_EQ(m_engine->getLibraryVersion(), 1);
}

TEST_P(SkeinHashEngine, DigestsTheEmptyMessage)
{
    ASSERT_EQ(m_engine->init(), kSuccess);
    EXPECT_EQ(m_engine->update(nullptr, 0), kSuccess);
    ASSERT_EQ(m_engine->final(), kSuccess);
    EXPECT_EQ(hexStart(digestOf(*m_engine)), GetParam().emptyMessageStart);
}

TEST_P(SkeinHashEngine, RefusesDataAndEndBeforeInitAndAfterRelease)
{
    const auto data = message(300);
    EXPECT_FALSE(m_engine->isInitialised());
    EXPECT_EQ(m_engine->update(data.data(), 300), kNotInitialised);
    EXPECT_EQ(m_engine->final(), kNotInitialised);

    ASSERT_EQ(m_engine->init(), kSuccess);
    EXPECT_TRUE(m_engine->isInitialised());
    m_engine->release();
    EXPECT_FALSE(m_engine->isInitialised());
    EXPECT_EQ(m_engine->update(data.data(), 300), kNotInitialised);
    EXPECT_EQ(m_engine->final(), kNotInitialised);
}

TEST_P(SkeinHashEngine, RefusesADigestBufferThatIsMissingOrTooSmall)
{
    const std::int32_t size = m_engine->getDigestSize();
    std::vector<unsigned char> room(static_cast<std::size_t>(size) + 1, 0xA5);
    EXPECT_EQ(m_engine->getDigest(nullptr, size), (HashResult{{5, 6}, {}}));
    EXPECT_EQ(m_engine->getDigest(nullptr, 0), (HashResult{{5, 6}, {}}));
    EXPECT_EQ(m_engine->getDigest(room.data(), size - 1), (HashResult{{5, 10}, {}}));
    EXPECT_EQ(m_engine->getDigest(room.data(), -1), (HashResult{{5, 10}, {}}));
    EXPECT_EQ(std::count(room.begin(), room.end(), 0xA5), size + 1);

    EXPECT_EQ(m_engine->getDigest(room.data(), size + 1), kSuccess);
    EXPECT_EQ(room.back(), 0xA5);
}

TEST_P(SkeinHashEngine, DigestStaysReadableAfterReleaseUntilTheNextInit)
{
    const auto digest = digestInPieces(*m_engine, message(10), 10);
    m_engine->release();
    EXPECT_EQ(digestOf(*m_engine), digest);
    ASSERT_EQ(m_engine->init(), kSuccess);
    EXPECT_EQ(digestOf(*m_engine), std::vector<unsigned char>(digest.size()));
}

TEST_P(SkeinHashEngine, DigestDoesNotDependOnHowTheMessageIsCut)
{
    const std::size_t block = GetParam().blockBytes;
    for (const std::size_t length : {block, block + 1, 2 * block, 5 * block - 1, 5 * block, 1000 + block}) {
        const auto data = message(length);
        const auto whole = digestInPieces(*m_engine, data, length);
        for (const std::size_t piece :
             {std::size_t{1}, std::size_t{3}, block - 1, block, block + 1, 3 * block})
            EXPECT_EQ(digestInPieces(*m_engine, data, piece), whole) << length << " bytes by " << piece;
    }
}

TEST_P(SkeinHashEngine, ANegativeLengthCountsAsNothing)
{
    const auto data = message(10);
    const auto expected = digestInPieces(*m_engine, data, 10);
    ASSERT_EQ(m_engine->init(), kSuccess);
    EXPECT_EQ(m_engine->update(data.data(), -1), kSuccess);
    EXPECT_EQ(m_engine->update(data.data(), 10), kSuccess);
    EXPECT_EQ(m_engine->update(data.data(), INT32_MIN), kSuccess);
    ASSERT_EQ(m_engine->final(), kSuccess);
    EXPECT_EQ(digestOf(*m_engine), expected);
}

TEST_P(SkeinHashEngine, StartsAfreshAfterABrokenRun)
{
    const auto data = message(700);
    const auto expected = GetParam().make();
    const auto digest = digestInPieces(*expected, data, 700);
    for (const bool released : {true, false}) {
        ASSERT_EQ(m_engine->init(), kSuccess);
        ASSERT_EQ(m_engine->update(data.data(), 333), kSuccess);
        if (released)
            m_engine->release();
        EXPECT_EQ(digestInPieces(*m_engine, data, 700), digest);
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, SkeinHashEngine,
    testing::Values(Row{makeEngine<skein::Skein256_224HashEngine>, 100, 28, 32, "0FADF1FA"},
                    Row{makeEngine<skein::Skein256_256HashEngine>, 101, 32, 32, "C8877087"},
                    Row{makeEngine<skein::Skein512_224HashEngine>, 102, 28, 64, "1541AE9F"},
                    Row{makeEngine<skein::Skein512_256HashEngine>, 103, 32, 64, "39CCC455"},
                    Row{makeEngine<skein::Skein512_384HashEngine>, 104, 48, 64, "DD5AAF45"},
                    Row{makeEngine<skein::Skein512_512HashEngine>, 105, 64, 64, "BC5B4C50"},
                    Row{makeEngine<skein::Skein1024_224HashEngine>, 106, 28, 128, "C4654381"},
                    Row{makeEngine<skein::Skein1024_256HashEngine>, 107, 32, 128, "0E5203EA"},
                    Row{makeEngine<skein::Skein1024_384HashEngine>, 108, 48, 128, "1FDB0819"},
                    Row{makeEngine<skein::Skein1024_512HashEngine>, 109, 64, 128, "E2943EB0"},
                    Row{makeEngine<skein::Skein1024_1024HashEngine>, 110, 128, 128, "0FFF9563"}));

/// A core that fails where the test says so, with the status that the test gives.
struct FailingCore
{
    struct State
    {
    };
    static inline std::uint32_t initStatus = 0;
    static inline std::uint32_t laterStatus = 0;

    static std::uint32_t init(State&, std::uint64_t) { return initStatus; }
    static std::uint32_t update(State&, const void*, std::uint64_t) { return laterStatus; }
    static std::uint32_t final(State&, void* output)
    {
        static_cast<unsigned char*>(output)[0] = 1;
        return laterStatus;
    }
};

using FailingEngine = skein::internal::SkeinCoreEngine<FailingCore, 1, 256>;

TEST(SkeinCoreEngine, AFailedInitReportsTheStatusAndLeavesTheEngineUnready)
{
    FailingEngine engine;
    FailingCore::initStatus = 3;
    EXPECT_EQ(engine.init(), (HashResult{{54, 3}, {5, 4008}}));
    EXPECT_FALSE(engine.isInitialised());
}

TEST(SkeinCoreEngine, AFailedUpdateOrFinalReportsTheStatusAndLeavesTheDigestZero)
{
    FailingEngine engine;
    FailingCore::initStatus = 0;
    FailingCore::laterStatus = 7;
    ASSERT_EQ(engine.init(), kSuccess);
    EXPECT_EQ(engine.update("a", 1), (HashResult{{54, 7}, {5, 4000}}));
    EXPECT_EQ(engine.final(), (HashResult{{54, 7}, {5, 4001}}));
    EXPECT_EQ(digestOf(engine), std::vector<unsigned char>(32));
}

} // namespace
