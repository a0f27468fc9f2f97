#include "crypto/cipher/CipherTestTools.h"

#include <array>

namespace quillon::cryptopp {
namespace {

using crypto::HashResult;
using Bytes = std::array<char, 57>;

template <class Engine>
class SymmetricEngine : public testing::Test
{
protected:
    HashResult setKey() { return engine.setKey(bytes.data(), 56, bytes.data(), 8); }

    Engine engine;
    Bytes bytes{};
};

using Engines = testing::Types<internal::BlowfishEncryptorEngine, internal::BlowfishDecryptorEngine>;
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
} // namespace quillon::cryptopp
