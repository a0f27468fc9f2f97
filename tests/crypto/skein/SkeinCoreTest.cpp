#include "crypto/skein/SkeinCore.h"

#include "crypto/skein/SkeinInitialValues.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace {

using namespace quillon::skein;

// The three sizes share the rules below; each brings its own functions.
struct Size256
{
    using State = Skein256State;
    static constexpr auto init = skein256Init;
    static constexpr auto update = skein256Update;
    static constexpr auto final = skein256Final;
    static constexpr auto block = skein256Block;
    static constexpr const auto& kTable = internal::kInitialValues<4>;
    static constexpr std::array<std::uint64_t, 4> kTabled{128, 160, 224, 256};
};

struct Size512
{
    using State = Skein512State;
    static constexpr auto init = skein512Init;
    static constexpr auto update = skein512Update;
    static constexpr auto final = skein512Final;
    static constexpr auto block = skein512Block;
    static constexpr const auto& kTable = internal::kInitialValues<8>;
    static constexpr std::array<std::uint64_t, 4> kTabled{224, 256, 384, 512};
};

struct Size1024
{
    using State = Skein1024State;
    static constexpr auto init = skein1024Init;
    static constexpr auto update = skein1024Update;
    static constexpr auto final = skein1024Final;
    static constexpr auto block = skein1024Block;
    static constexpr const auto& kTable = internal::kInitialValues<16>;
    static constexpr std::array<std::uint64_t, 3> kTabled{384, 512, 1024};
};

template <class Size>
class SkeinCore : public testing::Test
{
protected:
    using State = typename Size::State;
    static constexpr std::size_t kBlockBytes = State::kBlockBytes;

    static std::vector<unsigned char> message(std::size_t byteCount)
    {
        std::vector<unsigned char> bytes(byteCount);
        for (std::size_t i = 0; i < byteCount; ++i)
            bytes[i] = static_cast<unsigned char>(i % 251);
        return bytes;
    }

    /// The chaining value after the configuration block, by the block function alone.
    static auto configured(std::uint64_t hashBitLen)
    {
        State state{};
        std::array<unsigned char, kBlockBytes> block{'S', 'H', 'A', '3', 1};
        for (std::size_t i = 0; i < 8; ++i)
            block[8 + i] = static_cast<unsigned char>(hashBitLen >> (8 * i));
        state.tweak = {0, 0xC400000000000000};
        Size::block(state, block.data(), 1, 32);
        return state.chain;
    }
};

using Sizes = testing::Types<Size256, Size512, Size1024>;
TYPED_TEST_SUITE(SkeinCore, Sizes);

TYPED_TEST(SkeinCore, EachTabledInitialValueIsThatOfTheConfigurationBlock)
{
    ASSERT_EQ(TypeParam::kTable.size(), TypeParam::kTabled.size());
    for (std::size_t i = 0; i < TypeParam::kTabled.size(); ++i) {
        EXPECT_EQ(TypeParam::kTable[i].hashBitLen, TypeParam::kTabled[i]);
        EXPECT_EQ(TypeParam::kTable[i].chain, this->configured(TypeParam::kTabled[i]))
            << TypeParam::kTabled[i];
    }
}

TYPED_TEST(SkeinCore, InitGivesTheStartOfAMessageForAnyOutputLength)
{
    for (const std::uint64_t bits : {8U, 128U, 224U, 256U, 384U, 512U, 1024U, 4096U}) {
        typename TypeParam::State state;
        state.bufferedBytes = 5;
        EXPECT_EQ(TypeParam::init(state, bits), 0U);
        EXPECT_EQ(state.chain, this->configured(bits)) << bits;
        EXPECT_EQ(state.hashBitLen, bits);
        EXPECT_EQ(state.bufferedBytes, 0U);
        EXPECT_EQ(state.tweak, (std::array<std::uint64_t, 2>{0, 0x7000000000000000}));
    }
}

TYPED_TEST(SkeinCore, AnOutputOfSeveralBlocksIsCountedBlocksOfOneChainingValue)
{
    constexpr std::size_t blockBytes = TestFixture::kBlockBytes;
    constexpr std::size_t outputBytes = blockBytes + 5;
    std::vector<unsigned char> output(outputBytes + 8, 0xA5);
    typename TypeParam::State state;
    TypeParam::init(state, outputBytes * 8);
    TypeParam::update(state, "abc", 3);
    EXPECT_EQ(TypeParam::final(state, output.data()), 0U);

    const std::array<unsigned char, blockBytes> counter{1};
    state.tweak = {0, 0xFF00000000000000};
    TypeParam::block(state, counter.data(), 1, 8);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(output[blockBytes + i], static_cast<unsigned char>(state.chain[0] >> (8 * i)));
    EXPECT_EQ(std::count(output.begin() + outputBytes, output.end(), 0xA5), 8);
}

} // namespace
