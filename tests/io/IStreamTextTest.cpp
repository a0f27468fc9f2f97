#include "io/IStreamText.h"

#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace quillon::io {
namespace {

TEST(IStreamText, ANewTextStartsAtItsFrontAndNullTakesItAway)
{
    IStreamText<char> stream;
    stream.setText("abc");
    char c = 0;
    ASSERT_TRUE(stream.readChar(&c));
    stream.setText("xy");
    EXPECT_TRUE(stream.isBegin());
    EXPECT_EQ(stream.size(), 2);
    stream.setText(nullptr);
    EXPECT_TRUE(stream.isEnd());
    EXPECT_EQ(stream.size(), 0);
}

struct HexText
{
    const char* text;
    std::string bytes;
};

class IStreamHexTextTest : public testing::TestWithParam<HexText>
{
};

TEST_P(IStreamHexTextTest, DeliversTheBytesThatAreSpelled)
{
    IStreamHexText<char> stream;
    ASSERT_EQ(stream.setText(GetParam().text), err::ResultCode{});
    const std::string& expected = GetParam().bytes;
    ASSERT_EQ(stream.size(), static_cast<std::int64_t>(expected.size()));
    std::string bytes(expected.size(), '\0');
    unsigned bytesRead = 0;
    EXPECT_TRUE(stream.read(bytes.data(), static_cast<int>(bytes.size()), &bytesRead));
    EXPECT_EQ(bytes, expected);
}

INSTANTIATE_TEST_SUITE_P(Texts, IStreamHexTextTest,
                         testing::Values(HexText{"0A 1b\n", "\x0A\x1B"}, HexText{"ABC", "\xAB"},
                                         HexText{"", ""}, HexText{" \t", ""},
                                         HexText{"\vfF\f0 0 ", {"\xFF\0", 2}}, HexText{"a b c", "\xAB"}));

class IStreamHexTextRefusal : public testing::TestWithParam<const char*>
{
};

TEST_P(IStreamHexTextRefusal, LeavesTheStreamEmpty)
{
    IStreamHexText<char> stream;
    ASSERT_EQ(stream.setText("0a"), err::ResultCode{});
    EXPECT_EQ(stream.setText(GetParam()), (err::ResultCode{5, 5}));
    EXPECT_EQ(stream.lastError(), (err::ResultCode{5, 5}));
    EXPECT_EQ(stream.size(), 0);
    EXPECT_TRUE(stream.isEnd());
}

INSTANTIATE_TEST_SUITE_P(Texts, IStreamHexTextRefusal,
                         testing::Values("0G", "G0", "00g", "0x", "00-11",
                                         "00\xA0"
                                         "11"));

TEST(IStreamHexText, AskingForMoreThanIsSpelledIsFalseWithTheBytesInFront)
{
    IStreamHexText<char> stream;
    ASSERT_EQ(stream.setText("41 42"), err::ResultCode{});
    std::array<char, 8> buffer{'z', 'z', 'z'};
    unsigned bytesRead = 0;
    EXPECT_FALSE(stream.read(buffer.data(), 8, &bytesRead));
    EXPECT_EQ(bytesRead, 5U);
    EXPECT_EQ(std::string(buffer.data(), 3), "ABz");
}

} // namespace
} // namespace quillon::io
