#include "crypto/entry/HashEntry.h"

#include "crypto/HashCatalogue.h"
#include "crypto/PrintHashResult.h"
#include "crypto/TestDoubles.h"
#include "crypto/VectorFile.h"
#include "crypto/cryptopp/CppHashFactory.h"
#include "crypto/skein/SkeinHashFactory.h"
#include "logger/Log.h"
#include "support/RecordingAppender.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace quillon::crypto {
namespace {

using logger::ELogLevel;
using tests::HashVector;
using tests::TempFolder;

const cryptopp::CHashFactory kCryptoppFactory;
const skein::CHashFactory kSkeinFactory;

class HashEntry : public testing::Test
{
protected:
    HashEntry()
    {
        EXPECT_TRUE(succeeded(
            logger::getLogSender()->appenders().addAppender(new tests::RecordingAppender(1, logged))));
        logger::getLogSender()->setLevel(ELogLevel::Error);
    }

    ~HashEntry() override
    {
        logger::getLogSender()->setLevel(ELogLevel::Off);
        logger::getLogSender()->appenders().removeAllAppenders();
    }

    static thisapp::SHashData fileNamed(const std::string& name)
    {
        thisapp::SHashData data;
        data.fileName = name;
        return data;
    }

    /// What was logged, as "level category: message".
    std::vector<std::string> lines() const
    {
        std::vector<std::string> texts;
        for (const auto& line : logged)
            texts.push_back(std::to_string(static_cast<int>(line.level)) + ' ' + line.category + ": " +
                            line.message);
        return texts;
    }

    using Lines = std::vector<std::string>;
    tests::Lines logged;
    TempFolder folder;
    const std::shared_ptr<IHash> sha256 = getHashCalculator(1, 11);
};

TEST_F(HashEntry, ACalculatorThatDoesNotExistIsLogged)
{
    struct Row
    {
        std::uint32_t library, algorithm;
        std::string line;
    };
    for (const Row& row :
         {Row{10, 1, "Undefined library type: 10"}, Row{4294967295, 1, "Undefined library type: 4294967295"},
          Row{0, 11, "Undefined library type: 0"},
          Row{1, 100, "Failed to load cryptographic engine (cpp). Error: 5/70"},
          Row{1, 2, "Failed to load cryptographic engine (cpp). Error: 5/70"},
          Row{300, 1, "Failed to load cryptographic engine (sk). Error: 5/70"}}) {
        logged.clear();
        EXPECT_EQ(getHashCalculator(row.library, row.algorithm), nullptr);
        EXPECT_EQ(lines(), Lines{"2 getHashCalculator: " + row.line});
    }
    for (const IHashFactoryBase* factory :
         std::initializer_list<const IHashFactoryBase*>{&kCryptoppFactory, &kSkeinFactory}) {
        IHash* hash = nullptr;
        EXPECT_EQ(factory->create(10, 11, &hash), (HashResult{{5, 70}, {}}));
        EXPECT_EQ(factory->create(10, 11, nullptr), (HashResult{{5, 5}, {}}));
    }
}

TEST_F(HashEntry, AMissingCalculatorIsReportedBeforeAMissingFileName)
{
    EXPECT_EQ(calculateHash(fileNamed(""), nullptr, nullptr), (HashResult{{5, 4006}, {}}));
    EXPECT_EQ(calculateHash(fileNamed(""), sha256, nullptr), (HashResult{{5, 200}, {}}));
    EXPECT_EQ(lines(), (Lines{"2 calculateHash: Cryptographic engine is not loaded",
                              "2 calculateHash: File not defined"}));
}

TEST_F(HashEntry, AFileThatCannotBeOpenedGivesTheErrorOfTheSystemAndNoCallback)
{
    tests::Events events;
    tests::RecordingCallback callback(events);
    const std::string missing = tests::utf8Name(folder.file("missing"));
    EXPECT_EQ(calculateHash(fileNamed(missing), sha256, &callback), (HashResult{{1, ENOENT}, {}}));
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(lines(), (Lines{"2 calculateHash: Failed to open file. Error: 1/" + std::to_string(ENOENT)}));
}

struct FileCase
{
    std::string name;
    std::string bytes;
    std::string digest;
};

// SHA-256 of nothing, of "abc" (FIPS 180-2, appendix B) and of a million letters 'a' (the same).
const FileCase kFileCases[] = {
    {"empty", "", "E3B0C44298FC1C149AFBF4C8996FB92427AE41E4649B934CA495991B7852B855"},
    {"a name 'with' quotes & signs, \u00FC and \u6F22\u5B57", "abc",
     "BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD"},
    {"large", std::string(1000000, 'a'), "CDC76E5C9914FB9281A1C7E284D73E67F1809A48A497200E046D39CCC7112CD0"},
};

TEST_F(HashEntry, TheDigestOfAFileIsThatOfItsBytes)
{
    for (const FileCase& entry : kFileCases) {
        const std::string name = tests::utf8Name(folder.write(entry.name, entry.bytes));
        EXPECT_EQ(calculateHash(fileNamed(name), sha256, nullptr), HashResult{}) << name;
        std::string digest;
        EXPECT_EQ(sha256->getDigestHex(digest), HashResult{});
        EXPECT_EQ(digest, entry.digest) << name;
    }
    EXPECT_TRUE(logged.empty());
}

std::vector<HashVector> allVectors()
{
    return tests::readVectorFolder(KESTRUM_TEST_DATA "/crypto/vectors");
}

std::shared_ptr<IHash> calculatorNamed(const std::string& name)
{
    std::uint32_t algorithmId = 0;
    if (!findAlgorithmIdByName(name, algorithmId))
        return nullptr;
    const auto row = std::ranges::find(hashCatalogue(), algorithmId,
                                       [](const HashAlgorithm& each) { return each.id.alg; });
    return getHashCalculator(row->id.lib, algorithmId);
}

class PublishedDigests : public testing::TestWithParam<HashVector>
{
};

// One calculator for all pieces, so each run also shows that the one before has left nothing behind.
TEST_P(PublishedDigests, AreReachedHoweverTheInputIsCut)
{
    const std::shared_ptr<IHash> hash = calculatorNamed(GetParam().algorithm);
    ASSERT_NE(hash, nullptr) << GetParam().algorithm;
    const std::string& message = GetParam().message;
    for (const std::size_t piece : {message.size() + 1, std::size_t{1}, std::size_t{31}, std::size_t{64},
                                    std::size_t{129}, std::size_t{4096}}) {
        tests::MemoryStream stream(message);
        EXPECT_EQ(hash->calculate(&stream, static_cast<std::int32_t>(piece), 400, nullptr), HashResult{});
        std::string digest;
        EXPECT_EQ(hash->getDigestHex(digest), HashResult{});
        EXPECT_EQ(digest, GetParam().digest) << "pieces of " << piece << " bytes";
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

TEST(HashCatalogue, EveryRowHasItsCalculatorAndPublishedAndIndependentDigests)
{
    std::set<std::string> published;
    std::set<std::string> independent;
    for (const HashVector& vector : allVectors()) {
        const bool isPublished = vector.label.find("-published") != std::string::npos;
        (isPublished ? published : independent).insert(vector.algorithm);
    }
    for (const HashAlgorithm& row : hashCatalogue()) {
        const std::shared_ptr<IHash> hash = getHashCalculator(row.id.lib, row.id.alg);
        ASSERT_NE(hash, nullptr) << row.name;
        EXPECT_EQ(hash->getLibraryId(), row.id.lib);
        EXPECT_EQ(hash->getAlgorithmId(), row.id.alg) << row.name;
        EXPECT_EQ(hash->getDigestSize(), row.digestBytes) << row.name;
        EXPECT_TRUE(published.contains(std::string(row.name))) << row.name;
        EXPECT_TRUE(independent.contains(std::string(row.name))) << row.name;
    }
}

} // namespace
} // namespace quillon::crypto
