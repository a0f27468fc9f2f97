#include "text/Unicode.h"

#include <gtest/gtest.h>

#include <random>

namespace quillon::text {
namespace {

struct Text
{
    const char* utf8;
    const wchar_t* wide;
};

class WellFormedText : public testing::TestWithParam<Text>
{
};

TEST_P(WellFormedText, ConvertsInBothDirections)
{
    EXPECT_EQ(wideFromUtf8(GetParam().utf8), GetParam().wide);
    EXPECT_EQ(utf8FromWide(GetParam().wide), GetParam().utf8);
}

// The first and the last character of each length of a sequence, and the neighbours of the surrogates.
INSTANTIATE_TEST_SUITE_P(Unicode, WellFormedText,
                         testing::Values(Text{"", L""}, Text{"a\x7F", L"a\x7F"},
                                         Text{"\xC2\x80\xDF\xBF", L"\u0080\u07FF"},
                                         Text{"\xE0\xA0\x80\xEF\xBF\xBF", L"\u0800\uFFFF"},
                                         Text{"\xED\x9F\xBF\xEE\x80\x80", L"\uD7FF\uE000"},
                                         Text{"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", L"\U00010000\U0010FFFF"},
                                         Text{"\xE6\x96\x87 \"\xC3\xA4\"", L"\u6587 \"\u00E4\""}));

class IllFormedUtf8 : public testing::TestWithParam<Text>
{
};

TEST_P(IllFormedUtf8, BecomesOneReplacementForEachByteThatFitsNowhere)
{
    EXPECT_EQ(wideFromUtf8(GetParam().utf8), GetParam().wide);
}

INSTANTIATE_TEST_SUITE_P(
    Unicode, IllFormedUtf8,
    testing::Values(Text{"a\x80z", L"a\uFFFDz"},                           // no sequence starts so
                    Text{"\xC3", L"\uFFFD"},                               // cut
                    Text{"\xE6\x96", L"\uFFFD\uFFFD"},                     // cut
                    Text{"\xC3(", L"\uFFFD("},                             // broken off by a letter
                    Text{"\xC0\xAF", L"\uFFFD\uFFFD"},                     // longer than needed
                    Text{"\xE0\x80\xAF", L"\uFFFD\uFFFD\uFFFD"},           // longer than needed
                    Text{"\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},           // a surrogate
                    Text{"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"}, // above the last character
                    Text{"\xF8\x88\x80\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"})); // five bytes

TEST(Unicode, ALoneSurrogateBecomesTheReplacement)
{
    for (const int surrogate : {0xD800, 0xDBFF, 0xDC00, 0xDFFF}) {
        const std::wstring wide{L'a', static_cast<wchar_t>(surrogate), L'b'};
        EXPECT_EQ(wideFromUtf8(utf8FromWide(wide)), L"a\uFFFDb") << surrogate;
    }
}

TEST(Unicode, RandomBytesBecomeTextThatConvertsWithoutFurtherChange)
{
    std::mt19937 random(20260101);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(static_cast<std::size_t>(round % 17), '\0');
        for (char& c : bytes)
            c = static_cast<char>(byte(random));
        const std::wstring wide = wideFromUtf8(bytes);
        EXPECT_EQ(wideFromUtf8(utf8FromWide(wide)), wide);
    }
}

} // namespace
} // namespace quillon::text
