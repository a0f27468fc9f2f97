#include "crypto/cryptopp/CHashEngine.h"

#include "crypto/PrintHashResult.h"
#include "crypto/cryptopp/CCrc32HashEngine.h"

#include <crypto++/adler32.h>
#include <crypto++/sha.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

namespace quillon::cryptopp {
namespace {

using crypto::HashResult;

template <class Engine>
class CryptoppEngine : public testing::Test
{
protected:
    void absorb(const std::string& text)
    {
        EXPECT_EQ(engine.update(text.data(), static_cast<std::int32_t>(text.size())), HashResult{});
    }

    std::string digest()
    {
        std::string bytes(static_cast<std::size_t>(engine.getDigestSize()), '?');
        EXPECT_EQ(engine.getDigest(bytes.data(), engine.getDigestSize()), HashResult{});
        return bytes;
    }

    Engine engine;
};

using Engines = testing::Types<internal::CHashEngine<CryptoPP::SHA256, 11>,
                               internal::CHashEngine<CryptoPP::Adler32, 400>, CCrc32HashEngine>;
TYPED_TEST_SUITE(CryptoppEngine, Engines);

TYPED_TEST(CryptoppEngine, BelongsToTheCryptoppLibraryAndIsAlwaysReady)
{
    EXPECT_EQ(this->engine.getLibraryId(), 1U);
    EXPECT_EQ(this->engine.getLibraryVersion(), 562);
    EXPECT_TRUE(this->engine.isInitialised());
    this->engine.release();
    EXPECT_TRUE(this->engine.isInitialised());
}

TYPED_TEST(CryptoppEngine, InitClearsTheDigestButKeepsWhatWasAbsorbed)
{
    this->absorb("abc");
    EXPECT_EQ(this->engine.final(), HashResult{});
    const std::string whole = this->digest();
    this->absorb("ab");
    EXPECT_EQ(this->engine.init(), HashResult{});
    EXPECT_EQ(this->digest(), std::string(whole.size(), '\0'));
    this->absorb("c");
    EXPECT_EQ(this->engine.final(), HashResult{});
    EXPECT_EQ(this->digest(), whole);
}

TYPED_TEST(CryptoppEngine, ANullPointerWithoutLengthIsAccepted)
{
    EXPECT_EQ(this->engine.final(), HashResult{});
    const std::string empty = this->digest();
    EXPECT_EQ(this->engine.update(nullptr, 0), HashResult{});
    EXPECT_EQ(this->engine.final(), HashResult{});
    EXPECT_EQ(this->digest(), empty);
}

TYPED_TEST(CryptoppEngine, ADigestWithoutRoomForItIsRefusedAndNothingIsWritten)
{
    std::array<char, 64> room{};
    room.fill('?');
    EXPECT_EQ(this->engine.getDigest(nullptr, 64), (HashResult{{5, 6}, {}}));
    EXPECT_EQ(this->engine.getDigest(room.data(), this->engine.getDigestSize() - 1),
              (HashResult{{5, 10}, {}}));
    EXPECT_EQ(room[0], '?');
    EXPECT_EQ(this->engine.getDigest(room.data(), 64), HashResult{});
    EXPECT_EQ(room[static_cast<std::size_t>(this->engine.getDigestSize())], '?');
}

TEST(CHashEngine, ANegativeLengthAbsorbsNothing)
{
    internal::CHashEngine<CryptoPP::Adler32, 400> engine;
    std::array<unsigned char, 4> digest{};
    EXPECT_EQ(engine.update("abc", -1), HashResult{});
    EXPECT_EQ(engine.final(), HashResult{});
    EXPECT_EQ(engine.getDigest(digest.data(), 4), HashResult{});
    EXPECT_EQ(digest, (std::array<unsigned char, 4>{0, 0, 0, 1}));
}

} // namespace
} // namespace quillon::cryptopp
