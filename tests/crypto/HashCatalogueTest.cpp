#include "crypto/HashCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::crypto {
namespace {

TEST(HashCatalogue, KeepsTheOrderThatUsersSee)
{
    std::vector<std::uint32_t> ids;
    for (const HashAlgorithm& row : hashCatalogue())
        ids.push_back(row.id.alg);
    const std::vector<std::uint32_t> expected{1,   10,  11,  12,  13,  20,  21,  22,  23,  30,  40,
                                              50,  51,  52,  53,  100, 101, 102, 103, 104, 105, 106,
                                              107, 108, 109, 110, 300, 301, 303, 304, 400, 401};
    EXPECT_EQ(ids, expected);
}

TEST(HashCatalogue, OnlyTheSkeinRowsBelongToTheSkeinLibrary)
{
    for (const HashAlgorithm& row : hashCatalogue())
        EXPECT_EQ(row.id.lib, row.name.starts_with("Skein") ? 300U : 1U) << row.name;
}

TEST(HashCatalogue, OnlyChecksumsAndBrokenDigestsAreWeak)
{
    for (const HashAlgorithm& row : hashCatalogue())
        EXPECT_EQ(row.strong, row.id.alg < 300) << row.name;
}

TEST(HashCatalogue, NamesAreUnique)
{
    std::set<std::string_view> names;
    for (const HashAlgorithm& row : hashCatalogue())
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
}

TEST(HashCatalogue, EveryRowIsFoundByItsNumberAndByItsNameInAnyCase)
{
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
    }
}

TEST(HashCatalogue, ANameThatIsNotInTheTableIsNotFound)
{
    for (const std::string_view name : {"SHA-1", "SHA256", "SHA-2567", "SHA-25", "", " SHA-256", "MD5 "}) {
        std::uint32_t found = 77;
        EXPECT_FALSE(findAlgorithmIdByName(name, found)) << name;
        EXPECT_EQ(found, 77U);
    }
}

TEST(HashCatalogue, AnUnknownNumberHasNeitherNameNorSize)
{
    for (const std::uint32_t id : {0U, 2U, 9U, 14U, 99U, 111U, 302U, 402U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(isHashAlgValid(id)) << id;
        EXPECT_EQ(checkHashAlg(id), 0U);
        EXPECT_EQ(getHashAlgName(id), "");
        EXPECT_EQ(getAlgorithmDigestSize(id), 0);
    }
}

TEST(HashCatalogue, SixLibraryNumbersMayBeStored)
{
    for (const std::uint32_t id : {1U, 10U, 20U, 100U, 200U, 300U})
        EXPECT_TRUE(isHashLibraryValid(id)) << id;
    for (const std::uint32_t id : {0U, 2U, 11U, 30U, 299U, 301U, 0xFFFFFFFFU})
        EXPECT_FALSE(isHashLibraryValid(id)) << id;
}

TEST(HashCatalogue, TheDefaultIsSha256)
{
    EXPECT_EQ(kDefaultHashAlg, (thisapp::SHashAlgId{1, 11}));
    EXPECT_EQ(getHashAlgName(kDefaultHashAlg.alg), "SHA-256");
}

} // namespace
} // namespace quillon::crypto
