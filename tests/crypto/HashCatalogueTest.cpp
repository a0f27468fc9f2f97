#include "crypto/HashCatalogue.h"

#include "crypto/DigestText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::crypto {
namespace {

using namespace std::string_view_literals;

TEST(HashCatalogue, EveryRowIsFoundByItsNumberAndByItsNameInAnyCase)
{
    EXPECT_EQ(hashCatalogue().size(), 32U);
    for (const HashAlgorithm& row : hashCatalogue()) {
        std::string lower(row.name);
        std::ranges::transform(lower, lower.begin(),
                               [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
        std::uint32_t found = 0;
        EXPECT_TRUE(findAlgorithmIdByName(lower, found)) << lower;
        EXPECT_EQ(found, row.id.alg);
        EXPECT_EQ(getHashAlgName(row.id.alg), row.name);
        EXPECT_EQ(getAlgorithmDigestSize(row.id.alg), row.digestBytes);
        EXPECT_EQ(checkHashAlg(row.id.alg), row.id.alg);
        EXPECT_TRUE(isHashAlgValid(row.id.alg));
        EXPECT_EQ(row.strong, row.id.alg < 300) << "checksums and broken digests are weak: " << row.name;
    }
}

TEST(HashCatalogue, WhatIsNotInTheTableIsNotFound)
{
    for (const std::string_view name : {"SHA-1", "SHA256", "SHA-2567", "SHA-25", "", " SHA-256", "MD5 "}) {
        std::uint32_t found = 77;
        EXPECT_FALSE(findAlgorithmIdByName(name, found)) << name;
        EXPECT_EQ(found, 77U);
    }
    for (const std::uint32_t id : {0U, 2U, 9U, 14U, 99U, 111U, 302U, 402U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(isHashAlgValid(id)) << id;
        EXPECT_EQ(checkHashAlg(id), 0U);
        EXPECT_EQ(getHashAlgName(id), "");
        EXPECT_EQ(getAlgorithmDigestSize(id), 0);
    }
    for (const std::uint32_t id : {1U, 10U, 20U, 100U, 200U, 300U})
        EXPECT_TRUE(isHashLibraryValid(id)) << id;
    for (const std::uint32_t id : {0U, 2U, 11U, 30U, 299U, 301U, 0xFFFFFFFFU})
        EXPECT_FALSE(isHashLibraryValid(id)) << id;
}

TEST(DigestText, HexShowsEachByteAsTwoCapitalDigitsHighOneFirst)
{
    EXPECT_EQ(bytesToHex("\x00\x01\x9A\xBC\xDE\xF5\xFF"sv), "00019ABCDEF5FF");
    EXPECT_EQ(bytesToHex<wchar_t>("\x00\x7F\x80\xAB"sv), L"007F80AB");
    EXPECT_EQ(bytesToHex({static_cast<const char*>(nullptr), 3}), "");
}

TEST(DigestText, Base64PadsTheLastGroupAndHasNoLineBreaks)
{
    const std::string longDigest(128, '\xFF');
    // RFC 4648, section 10, and the two last symbols of the alphabet.
    for (const auto& [bytes, text] : {std::pair{""sv, ""sv},
                                      {"f"sv, "Zg=="sv},
                                      {"fo"sv, "Zm8="sv},
                                      {"foo"sv, "Zm9v"sv},
                                      {"foob"sv, "Zm9vYg=="sv},
                                      {"fooba"sv, "Zm9vYmE="sv},
                                      {"foobar"sv, "Zm9vYmFy"sv},
                                      {"\xFB\xEF\xFF"sv, "++//"sv},
                                      {"\0"sv, "AA=="sv},
                                      {"\xFF\xFE"sv, "//4="sv}})
        EXPECT_EQ(bytesToBase64(bytes), text);
    EXPECT_EQ(bytesToBase64(longDigest), std::string(170, '/') + "8=");
    EXPECT_EQ(bytesToBase64({static_cast<const char*>(nullptr), 3}), "");
}

} // namespace
} // namespace quillon::crypto
