#include "crypto/DigestText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillon::crypto {
namespace {

using namespace std::string_view_literals;

TEST(DigestText, HexShowsEachByteAsTwoCapitalDigitsHighOneFirst)
{
    EXPECT_EQ(bytesToHex("\x00\x01\x9A\xBC\xDE\xF5\xFF"sv), "00019ABCDEF5FF");
    EXPECT_EQ(bytesToHex<wchar_t>("\x00\x7F\x80\xAB"sv), L"007F80AB");
}

TEST(DigestText, NoBytesGiveAnEmptyText)
{
    EXPECT_EQ(bytesToHex({}), "");
    EXPECT_EQ(bytesToHex<wchar_t>({}), L"");
    EXPECT_EQ(bytesToBase64({}), "");
}

TEST(DigestText, ANullPointerWithALengthGivesAnEmptyText)
{
    const char* const null = nullptr;
    EXPECT_EQ(bytesToHex({null, 3}), "");
    EXPECT_EQ(bytesToBase64({null, 3}), "");
}

struct Base64Case
{
    std::string_view bytes;
    std::string_view text;
};

// RFC 4648, section 10, and the two last symbols of the alphabet.
constexpr Base64Case kBase64Cases[] = {
    {"f"sv, "Zg=="sv},
    {"fo"sv, "Zm8="sv},
    {"foo"sv, "Zm9v"sv},
    {"foob"sv, "Zm9vYg=="sv},
    {"fooba"sv, "Zm9vYmE="sv},
    {"foobar"sv, "Zm9vYmFy"sv},
    {"\xFB\xEF\xFF"sv, "++//"sv},
    {"\0"sv, "AA=="sv},
    {"\xFF\xFE"sv, "//4="sv},
};

TEST(DigestText, Base64PadsTheLastGroup)
{
    for (const Base64Case& vector : kBase64Cases)
        EXPECT_EQ(bytesToBase64(vector.bytes), vector.text);
}

TEST(DigestText, ALongDigestHasNoLineBreaksInBase64)
{
    const std::string digest(128, '\xFF');
    EXPECT_EQ(bytesToBase64(digest), std::string(170, '/') + "8=");
}

} // namespace
} // namespace quillon::crypto
