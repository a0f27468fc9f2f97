#include "crypto/IHashEngine.h"

#include "crypto/PrintHashResult.h"
#include "crypto/cryptopp/CHashEngine.h"
#include "crypto/skein/SkeinHashEngines.h"
#include "support/Bytes.h"

#include <crypto++/adler32.h>
#include <crypto++/sha.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

namespace quillon::crypto {
namespace {

using tests::patternBytes;

constexpr HashResult kSuccess{};
constexpr HashResult kNotInitialised{{5, 4006}, {}};

struct Row
{
    std::unique_ptr<IHashEngine> (*make)();
    std::int32_t libraryVersion;
    bool needsInit; ///< an engine over Crypto++ is always ready, and its `init` clears the digest only
};

template <class Engine>
Row row(std::int32_t libraryVersion)
{
    return {[]() -> std::unique_ptr<IHashEngine> { return std::make_unique<Engine>(); }, libraryVersion,
            libraryVersion == 1};
}

/// What every engine promises. That the digests are right is shown by the published ones.
class HashEngine : public testing::TestWithParam<Row>
{
protected:
    HashResult absorb(const std::string& bytes)
    {
        return engine->update(bytes.data(), static_cast<std::int32_t>(bytes.size()));
    }

    std::string digest() const
    {
        std::string bytes(static_cast<std::size_t>(engine->getDigestSize()), '?');
        EXPECT_EQ(engine->getDigest(bytes.data(), engine->getDigestSize()), kSuccess);
        return bytes;
    }

    std::string digestOf(const std::string& bytes)
    {
        EXPECT_EQ(engine->init(), kSuccess);
        EXPECT_EQ(absorb(bytes), kSuccess);
        EXPECT_EQ(engine->final(), kSuccess);
        return digest();
    }

    const std::unique_ptr<IHashEngine> engine = GetParam().make();
};

TEST_P(HashEngine, TakesDataOnlyBetweenInitAndReleaseWhereItNeedsThem)
{
    const HashResult unready = GetParam().needsInit ? kNotInitialised : kSuccess;
    EXPECT_EQ(engine->getLibraryVersion(), GetParam().libraryVersion);
    EXPECT_EQ(absorb("abc"), unready);
    EXPECT_EQ(engine->final(), unready);
    EXPECT_EQ(engine->init(), kSuccess);
    EXPECT_TRUE(engine->isInitialised());
    engine->release();
    EXPECT_EQ(engine->isInitialised(), !GetParam().needsInit);
    EXPECT_EQ(absorb("abc"), unready);
    EXPECT_EQ(engine->final(), unready);
}

TEST_P(HashEngine, GivesItsDigestOnlyIntoRoomThatIsLargeEnough)
{
    const std::string expected = digestOf("abc");
    const std::int32_t size = engine->getDigestSize();
    std::string room(static_cast<std::size_t>(size) + 1, '?');
    const std::string untouched = room;
    EXPECT_EQ(engine->getDigest(nullptr, size), (HashResult{{5, 6}, {}}));
    for (const std::int32_t tooSmall : {size - 1, 0, -1})
        EXPECT_EQ(engine->getDigest(room.data(), tooSmall), (HashResult{{5, 10}, {}}));
    EXPECT_EQ(room, untouched);
    EXPECT_EQ(engine->getDigest(room.data(), size + 1), kSuccess);
    EXPECT_EQ(room, expected + '?');
}

TEST_P(HashEngine, KeepsItsDigestUntilTheNextInit)
{
    const std::string expected = digestOf("abc");
    engine->release();
    EXPECT_EQ(digest(), expected);
    EXPECT_EQ(engine->init(), kSuccess);
    EXPECT_EQ(digest(), std::string(expected.size(), '\0'));
}

TEST_P(HashEngine, ABrokenMessageIsForgottenOrGoesOn)
{
    const std::string message = patternBytes(700);
    const std::string expected = digestOf(message);
    for (const bool isReleased : {true, false}) {
        EXPECT_EQ(engine->init(), kSuccess);
        EXPECT_EQ(absorb(message.substr(0, 333)), kSuccess);
        if (isReleased)
            engine->release();
        EXPECT_EQ(digestOf(message.substr(GetParam().needsInit ? 0 : 333)), expected);
    }
}

TEST_P(HashEngine, NoBytesAndFewerChangeNothing)
{
    const std::string expected = digestOf("abc");
    EXPECT_EQ(engine->init(), kSuccess);
    EXPECT_EQ(engine->update(nullptr, 0), kSuccess);
    if (constexpr std::uint32_t kCrc32 = 401; engine->getAlgorithmId() != kCrc32) { // which must not see it
        EXPECT_EQ(engine->update("abc", -1), kSuccess);
    }
    EXPECT_EQ(absorb("abc"), kSuccess);
    EXPECT_EQ(engine->final(), kSuccess);
    EXPECT_EQ(digest(), expected);
}

constexpr std::int32_t kCryptopp = 562;
constexpr std::int32_t kSkein = 1;

INSTANTIATE_TEST_SUITE_P(
    All, HashEngine,
    testing::Values(row<cryptopp::internal::CHashEngine<CryptoPP::SHA256, 11>>(kCryptopp),
                    row<cryptopp::internal::CHashEngine<CryptoPP::Adler32, 400>>(kCryptopp),
                    row<cryptopp::CCrc32HashEngine>(kCryptopp), row<skein::Skein256_224HashEngine>(kSkein),
                    row<skein::Skein512_384HashEngine>(kSkein),
                    row<skein::Skein1024_1024HashEngine>(kSkein)));

/// A core of Skein that fails where the test says so.
struct FailingCore
{
    struct State
    {
    };
    static inline std::uint32_t initStatus = 0;

    static std::uint32_t init(State&, std::uint64_t) { return initStatus; }
    static std::uint32_t update(State&, const void*, std::uint64_t) { return 7; }
    static std::uint32_t final(State&, void* output)
    {
        static_cast<unsigned char*>(output)[0] = 1;
        return 7;
    }
};

TEST(SkeinCoreEngine, TellsTheStatusOfAFailingCoreAndWhatItWasDoing)
{
    skein::internal::SkeinCoreEngine<FailingCore, 1, 256> engine;
    FailingCore::initStatus = 3;
    EXPECT_EQ(engine.init(), (HashResult{{54, 3}, {5, 4008}}));
    EXPECT_FALSE(engine.isInitialised());
    FailingCore::initStatus = 0;
    EXPECT_EQ(engine.init(), kSuccess);
    EXPECT_EQ(engine.update("a", 1), (HashResult{{54, 7}, {5, 4000}}));
    EXPECT_EQ(engine.final(), (HashResult{{54, 7}, {5, 4001}}));
    std::string digest(32, '?');
    EXPECT_EQ(engine.getDigest(digest.data(), 32), kSuccess);
    EXPECT_EQ(digest, std::string(32, '\0'));
}

} // namespace
} // namespace quillon::crypto
