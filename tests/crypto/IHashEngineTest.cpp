#include "crypto/IHashEngine.h"

#include "crypto/TestDoubles.h"
#include "crypto/cryptopp/CHashEngine.h"
#include "crypto/skein/SkeinHashEngines.h"
#include "support/Bytes.h"

#include <cryptopp/sha.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

namespace quillon::crypto {
namespace {

using tests::codesOf;

template <class Engine>
std::unique_ptr<IHashEngine> made()
{
    return std::make_unique<Engine>();
}

/// What every engine promises. That the digests are right is shown by the published ones.
class HashEngine : public testing::TestWithParam<std::unique_ptr<IHashEngine> (*)()>
{
protected:
    std::string absorb(const std::string& bytes)
    {
        return codesOf(engine->update(bytes.data(), static_cast<std::int32_t>(bytes.size())));
    }

    std::string digest() const
    {
        std::string bytes(size, '?');
        EXPECT_EQ(codesOf(engine->getDigest(bytes.data(), engine->getDigestSize())), "0/0");
        return bytes;
    }

    std::string digestOf(const std::string& bytes)
    {
        EXPECT_EQ(codesOf(engine->init()), "0/0");
        EXPECT_EQ(absorb(bytes), "0/0");
        EXPECT_EQ(codesOf(engine->final()), "0/0");
        return digest();
    }

    const std::unique_ptr<IHashEngine> engine = GetParam()();
    const std::size_t size = static_cast<std::size_t>(engine->getDigestSize());
    /// An engine over Crypto++ is always ready, and its `init` clears the digest only.
    const bool needsInit = engine->getLibraryId() == kSkeinLibraryId;
};

TEST_P(HashEngine, TakesDataOnlyBetweenInitAndReleaseWhereItNeedsThem)
{
    const auto expectUnready = [this] {
        EXPECT_EQ(engine->isInitialised(), !needsInit);
        EXPECT_EQ(absorb("abc"), needsInit ? "5/4006" : "0/0");
        EXPECT_EQ(codesOf(engine->final()), needsInit ? "5/4006" : "0/0");
    };
    expectUnready();
    const std::string expected = digestOf("abc");
    EXPECT_TRUE(engine->isInitialised());
    engine->release();
    EXPECT_EQ(digest(), expected) << "kept until the next init";
    EXPECT_EQ(codesOf(engine->init()), "0/0");
    EXPECT_EQ(digest(), std::string(size, '\0'));
    engine->release();
    expectUnready();
}

TEST_P(HashEngine, GivesItsDigestOnlyIntoRoomThatIsLargeEnough)
{
    const std::string expected = digestOf("abc");
    std::string room(size + 1, '?');
    EXPECT_EQ(codesOf(engine->getDigest(nullptr, engine->getDigestSize())), "5/6");
    for (const std::int32_t tooSmall : {engine->getDigestSize() - 1, 0, -1})
        EXPECT_EQ(codesOf(engine->getDigest(room.data(), tooSmall)), "5/10");
    EXPECT_EQ(room, std::string(size + 1, '?'));
    EXPECT_EQ(codesOf(engine->getDigest(room.data(), engine->getDigestSize() + 1)), "0/0");
    EXPECT_EQ(room, expected + '?');
}

TEST_P(HashEngine, ABrokenMessageIsForgottenOrGoesOn)
{
    const std::string message = tests::patternBytes(700);
    const std::string expected = digestOf(message);
    for (const bool isReleased : {true, false}) {
        EXPECT_EQ(codesOf(engine->init()), "0/0");
        EXPECT_EQ(absorb(message.substr(0, 333)), "0/0");
        if (isReleased)
            engine->release();
        EXPECT_EQ(digestOf(message.substr(needsInit ? 0 : 333)), expected);
    }
}

TEST_P(HashEngine, NoBytesAndFewerChangeNothing)
{
    const std::string expected = digestOf("abc");
    EXPECT_EQ(codesOf(engine->init()), "0/0");
    EXPECT_EQ(codesOf(engine->update(nullptr, 0)), "0/0");
    if (constexpr std::uint32_t kCrc32 = 401; engine->getAlgorithmId() != kCrc32) { // which must not see it
        EXPECT_EQ(codesOf(engine->update("abc", -1)), "0/0");
    }
    EXPECT_EQ(absorb("abc"), "0/0");
    EXPECT_EQ(codesOf(engine->final()), "0/0");
    EXPECT_EQ(digest(), expected);
}

INSTANTIATE_TEST_SUITE_P(All, HashEngine,
                         testing::Values(made<cryptopp::internal::CHashEngine<CryptoPP::SHA256, 11>>,
                                         made<cryptopp::CCrc32HashEngine>,
                                         made<skein::Skein256_224HashEngine>,
                                         made<skein::Skein1024_1024HashEngine>));

TEST(SkeinCoreEngine, TellsTheStatusOfAFailingCoreAndWhatItWasDoing)
{
    EXPECT_EQ(codesOf(skein::internal::coreResult(7, err::kEngineUpdateFailed)), "54/7,5/4000");
}

} // namespace
} // namespace quillon::crypto
