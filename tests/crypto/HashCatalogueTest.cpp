#include "crypto/HashCatalogue.h"

#include "crypto/DigestText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::crypto {
namespace {

using namespace std::string_view_literals;

TEST(HashCatalogue, WhatIsNotInTheTableIsNotFound)
{
    EXPECT_EQ(hashCatalogue().size(), 32U);
    std::uint32_t found = 77;
    for (const std::string_view name : {"SHA-1", "SHA256", "SHA-2567", "SHA-25", "", " SHA-256", "MD5 "})
        EXPECT_FALSE(findAlgorithmIdByName(name, found)) << name;
    EXPECT_EQ(found, 77U);
    EXPECT_TRUE(findAlgorithmIdByName("sKEIN512-224", found));
    EXPECT_EQ(found, 102U);
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

TEST(HashCatalogue, ChecksumsAndBrokenDigestsAreWeak)
{
    for (const HashAlgorithm& row : hashCatalogue())
        EXPECT_EQ(row.strong, row.id.alg < 300) << row.name;
}

TEST(DigestText, Base64PadsTheLastGroupAndHasNoLineBreaks)
{
    // RFC 4648, section 10, and the two last symbols of the alphabet.
    for (const auto& [bytes, text] : {std::pair{""sv, ""sv},
                                      {"f"sv, "Zg=="sv},
                                      {"fo"sv, "Zm8="sv},
                                      {"foo"sv, "Zm9v"sv},
                                      {"foob"sv, "Zm9vYg=="sv},
                                      {"fooba"sv, "Zm9vYmE="sv},
                                      {"foobar"sv, "Zm9vYmFy"sv},
                                      {"\xFB\xEF\xFF"sv, "++//"sv},
                                      {"\xFF\xFE"sv, "//4="sv}})
        EXPECT_EQ(bytesToBase64(bytes), text);
    EXPECT_EQ(bytesToBase64(std::string(128, '\xFF')), std::string(170, '/') + "8=");
    EXPECT_EQ(bytesToBase64({static_cast<const char*>(nullptr), 3}), "");
    EXPECT_EQ(bytesToHex({static_cast<const char*>(nullptr), 3}), "");
}

} // namespace
} // namespace quillon::crypto
