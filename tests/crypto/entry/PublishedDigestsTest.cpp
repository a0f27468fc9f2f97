#include "crypto/HashCatalogue.h"
#include "crypto/PrintHashResult.h"
#include "crypto/TestDoubles.h"
#include "crypto/VectorFile.h"
#include "crypto/entry/HashEntry.h"
#include "io/IStreamBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace quillon::crypto {
namespace {

using tests::HashVector;
using tests::MemoryStream;

std::vector<HashVector> allVectors()
{
    return tests::readVectorFolder(KESTRUM_TEST_DATA "/crypto/vectors");
}

std::shared_ptr<IHash> calculatorNamed(const std::string& name)
{
    std::uint32_t algorithmId = 0;
    if (!findAlgorithmIdByName(name, algorithmId))
        return nullptr;
    return getHashCalculator(algorithmId >= 100 && algorithmId <= 110 ? kSkeinLibraryId : kCryptoppLibraryId,
                             algorithmId);
}

std::string hexOf(const IHash& hash)
{
    std::string text;
    EXPECT_EQ(hash.getDigestHex(text), HashResult{});
    return text;
}

class PublishedDigests : public testing::TestWithParam<HashVector>
{
protected:
    void SetUp() override { ASSERT_NE(hash, nullptr) << GetParam().algorithm; }

    const std::shared_ptr<IHash> hash = calculatorNamed(GetParam().algorithm);
};

TEST_P(PublishedDigests, AreReached)
{
    io::IStreamBytes stream;
    stream.setBytes({GetParam().message.begin(), GetParam().message.end()});
    EXPECT_EQ(
        hash->calculate(&stream, static_cast<std::int32_t>(GetParam().message.size() + 1), 400, nullptr),
        HashResult{});
    EXPECT_EQ(hexOf(*hash), GetParam().digest);
}

// One calculator for all pieces, so each run also shows that the one before has left nothing behind.
TEST_P(PublishedDigests, DoNotDependOnHowTheInputIsCut)
{
    for (const std::int32_t piece : {1, 63, 64, 65, 4096, 32768}) {
        MemoryStream stream(GetParam().message);
        EXPECT_EQ(hash->calculate(&stream, piece, 400, nullptr), HashResult{});
        EXPECT_EQ(hexOf(*hash), GetParam().digest) << "pieces of " << piece << " bytes";
    }
}

std::string caseName(const testing::TestParamInfo<HashVector>& info)
{
    std::string name = info.param.algorithm + '_' + info.param.label;
    std::ranges::replace_if(
        name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Vectors, PublishedDigests, testing::ValuesIn(allVectors()), caseName);

TEST(VectorFiles, HoldPublishedAndIndependentDigestsOfEveryAlgorithm)
{
    std::set<std::string> published;
    std::set<std::string> independent;
    for (const HashVector& vector : allVectors()) {
        const bool isPublished = vector.label.find("-published") != std::string::npos;
        (isPublished ? published : independent).insert(vector.algorithm);
    }
    for (const HashAlgorithm& row : hashCatalogue()) {
        EXPECT_TRUE(published.contains(std::string(row.name))) << row.name;
        EXPECT_TRUE(independent.contains(std::string(row.name))) << row.name;
    }
}

} // namespace
} // namespace quillon::crypto
