#include "crypto/HashCatalogue.h"
#include "crypto/IHashFactoryBase.h"
#include "crypto/PrintHashResult.h"
#include "crypto/cryptopp/CppHashFactory.h"
#include "crypto/skein/SkeinHashFactory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

namespace quillon::crypto {
namespace {

const cryptopp::CHashFactory kCryptoppFactory;
const skein::CHashFactory kSkeinFactory;

struct FactoryCase
{
    const char* name;
    const IHashFactoryBase* factory;
    std::uint32_t libraryId;
};

class HashFactory : public testing::TestWithParam<FactoryCase>
{
protected:
    static HashResult create(std::uint32_t libraryId, std::uint32_t algorithmId, std::unique_ptr<IHash>& hash)
    {
        IHash* created = nullptr;
        const HashResult result = GetParam().factory->create(libraryId, algorithmId, &created);
        hash.reset(created);
        return result;
    }

    const HashResult unknown{{5, 70}, {}};
};

TEST_P(HashFactory, OffersTheRowsOfItsLibraryAndNoOther)
{
    for (const HashAlgorithm& row : hashCatalogue()) {
        std::unique_ptr<IHash> hash;
        const HashResult result = create(GetParam().libraryId, row.id.alg, hash);
        if (row.id.lib != GetParam().libraryId) {
            EXPECT_EQ(result, unknown) << row.name;
            EXPECT_EQ(hash, nullptr);
            continue;
        }
        EXPECT_EQ(result, HashResult{}) << row.name;
        ASSERT_NE(hash, nullptr) << row.name;
        EXPECT_EQ(hash->getLibraryId(), row.id.lib);
        EXPECT_EQ(hash->getAlgorithmId(), row.id.alg);
        EXPECT_EQ(hash->getDigestSize(), row.digestBytes) << row.name;
    }
}

TEST_P(HashFactory, RefusesForeignLibrariesAndUnknownAlgorithms)
{
    std::unique_ptr<IHash> hash;
    for (const std::uint32_t library : {0U, 10U, 301U - GetParam().libraryId}) {
        for (const std::uint32_t algorithm : {1U, 100U})
            EXPECT_EQ(create(library, algorithm, hash), unknown) << library << ' ' << algorithm;
    }
    for (const std::uint32_t algorithm : {0U, 2U, 99U, 111U, 302U, 402U})
        EXPECT_EQ(create(GetParam().libraryId, algorithm, hash), unknown) << algorithm;
}

TEST_P(HashFactory, ANullTargetIsRefusedBeforeAnythingElse)
{
    const HashResult invalid{{5, 5}, {}};
    EXPECT_EQ(GetParam().factory->create(GetParam().libraryId, 11, nullptr), invalid);
    EXPECT_EQ(GetParam().factory->create(0, 0, nullptr), invalid);
}

INSTANTIATE_TEST_SUITE_P(Libraries, HashFactory,
                         testing::Values(FactoryCase{"Cryptopp", &kCryptoppFactory, 1},
                                         FactoryCase{"Skein", &kSkeinFactory, 300}),
                         [](const auto& parameter) { return parameter.param.name; });

} // namespace
} // namespace quillon::crypto
