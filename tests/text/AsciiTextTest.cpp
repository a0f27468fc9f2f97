#include "text/AsciiText.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::text {
namespace {

TEST(AsciiText, OnlySixBytesAreWhiteSpace)
{
    const std::string_view spaces = " \t\n\v\f\r";
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        EXPECT_EQ(isAsciiSpace(c), spaces.find(c) != std::string_view::npos) << "byte " << byte;
    }
}

TEST(AsciiText, HexDigitsOfBothCasesHaveTheirValueAndOtherBytesNone)
{
    const std::string_view lower = "0123456789abcdef";
    const std::string_view upper = "0123456789ABCDEF";
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const std::size_t value = std::min(lower.find(c), upper.find(c));
        EXPECT_EQ(hexDigitValue(c), value == std::string_view::npos ? -1 : static_cast<int>(value)) << byte;
    }
}

TEST(AsciiText, TrimTakesWhiteSpaceAtBothEndsOnly)
{
    EXPECT_EQ(trimAscii("\r\n a b\t\v\f "), "a b");
    EXPECT_EQ(trimAscii(" \n "), "");
    EXPECT_EQ(trimAscii("\xC2\xA0x\xC2\x85"), "\xC2\xA0x\xC2\x85");
}

TEST(AsciiText, ComparingIgnoresTheCaseOfLettersAndOfNothingElse)
{
    EXPECT_TRUE(equalsIgnoringAsciiCase("Sha-512z", "sHA-512Z"));
    EXPECT_FALSE(equalsIgnoringAsciiCase("sha", "sha-"));
    EXPECT_FALSE(equalsIgnoringAsciiCase("@[`{", "`{@["));
    EXPECT_FALSE(equalsIgnoringAsciiCase("\xC4", "\xE4"));
}

} // namespace
} // namespace quillon::text
