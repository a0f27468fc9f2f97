#include "crypto/entry/HashEntry.h"

#include "crypto/HashCatalogue.h"
#include "crypto/TestDoubles.h"
#include "crypto/cryptopp/CppHashFactory.h"
#include "crypto/skein/SkeinHashFactory.h"
#include "logger/Log.h"
#include "support/Bytes.h"
#include "support/RecordingAppender.h"
#include "support/TempFolder.h"
#include "text/AsciiText.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace quillon::crypto {
namespace {

using logger::ELogLevel;
using tests::codesOf;

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

    std::string run(const std::string& fileName, const std::shared_ptr<IHash>& hash)
    {
        thisapp::SHashData data;
        data.fileName = fileName;
        return codesOf(calculateHash(data, hash, &callback));
    }

    /// The one line that was logged since the last call, as "level category: message"; empty for none.
    std::string line()
    {
        std::string text;
        for (const auto& each : logged)
            text += std::to_string(static_cast<int>(each.level)) + ' ' + each.category + ": " + each.message;
        logged.clear();
        return text;
    }

    tests::Lines logged;
    tests::TempFolder folder;
    tests::Course course{"no run"};
    tests::RecordingCallback callback{course};
    const std::shared_ptr<IHash> sha256 = getHashCalculator(1, 11);
};

TEST_F(HashEntry, ACalculatorThatDoesNotExistIsLogged)
{
    for (const auto& [library, algorithm, sentence] :
         {std::tuple{10U, 1U, "Undefined library type: 10"},
          {4294967295U, 1U, "Undefined library type: 4294967295"},
          {1U, 100U, "Failed to load cryptographic engine (cpp). Error: 5/70"},
          {300U, 1U, "Failed to load cryptographic engine (sk). Error: 5/70"}}) {
        EXPECT_EQ(getHashCalculator(library, algorithm), nullptr);
        EXPECT_EQ(line(), std::string("2 getHashCalculator: ") + sentence);
    }
    IHash* hash = nullptr;
    EXPECT_EQ(codesOf(cryptopp::CHashFactory().create(300, 11, &hash)), "5/70");
    EXPECT_EQ(codesOf(skein::CHashFactory().create(1, 100, &hash)), "5/70");
    EXPECT_EQ(codesOf(skein::CHashFactory().create(300, 100, nullptr)), "5/5");
}

TEST_F(HashEntry, WhatIsMissingIsReportedAndLoggedWithoutARun)
{
    EXPECT_EQ(run("", nullptr), "5/4006");
    EXPECT_EQ(line(), "2 calculateHash: Cryptographic engine is not loaded");
    EXPECT_EQ(run("", sha256), "5/200");
    EXPECT_EQ(line(), "2 calculateHash: File not defined");
    const std::string systemError = "1/" + std::to_string(ENOENT);
    EXPECT_EQ(run(tests::utf8Name(folder.file("missing")), sha256), systemError);
    EXPECT_EQ(line(), "2 calculateHash: Failed to open file. Error: " + systemError);
    EXPECT_EQ(course.heard, "");
}

TEST_F(HashEntry, TheDigestOfAFileIsThatOfItsBytes)
{
    // SHA-256 of nothing, of "abc" (FIPS 180-2, appendix B) and of a million letters 'a' (the same).
    for (const auto& [name, bytes, expected] :
         {std::tuple{"empty", std::string(),
                     "E3B0C44298FC1C149AFBF4C8996FB92427AE41E4649B934CA495991B7852B855"},
          {"a name 'with' quotes & signs, \u00FC and \u6F22\u5B57", "abc",
           "BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD"},
          {"large", std::string(1000000, 'a'),
           "CDC76E5C9914FB9281A1C7E284D73E67F1809A48A497200E046D39CCC7112CD0"}}) {
        EXPECT_EQ(run(tests::utf8Name(folder.write(name, bytes)), sha256), "0/0") << name;
        EXPECT_TRUE(course.heard.ends_with("finished"));
        std::string digest;
        EXPECT_EQ(codesOf(sha256->getDigestHex(digest)), "0/0");
        EXPECT_EQ(digest, expected) << name;
    }
    EXPECT_EQ(line(), "");
}

/// A message and its digest; docs/test-vectors.md tells of the files they come from.
struct Vector
{
    std::string label; ///< "file:line"
    std::string message;
    std::string digest;
};

std::string messageOf(const std::string& key, const std::string& value)
{
    if (key == "text")
        return value;
    if (key == "in")
        return tests::bytesFromHex(value);
    if (key == "pattern")
        return tests::patternBytes(std::stoul(value));
    if (key != "repeat")
        throw std::runtime_error("unknown key " + key);
    return std::string(std::stoul(value), tests::bytesFromHex(value.substr(value.find(' ') + 1)).at(0));
}

/// All vectors by the name of their algorithm.
std::map<std::string, std::vector<Vector>, std::less<>> readVectors()
{
    std::map<std::string, std::vector<Vector>, std::less<>> all;
    for (const auto& entry : std::filesystem::directory_iterator(KESTRUM_TEST_DATA "/crypto/vectors")) {
        std::ifstream file(entry.path());
        std::string algorithm, message, line;
        for (int number = 1; std::getline(file, line); ++number) {
            if (line.empty() || line.front() == '#')
                continue;
            const std::size_t equals = line.find('=');
            const std::string key(text::trimAscii(line.substr(0, equals)));
            const std::string value(text::trimAscii(line.substr(equals + 1)));
            const std::string label = entry.path().filename().string() + ':' + std::to_string(number);
            SCOPED_TRACE(label);
            if (key == "algorithm")
                algorithm = value;
            else if (key == "out")
                all[algorithm].push_back({label, message, value});
            else
                message = messageOf(key, value);
        }
    }
    return all;
}

// One calculator for all pieces, so each run also shows that the one before has left nothing behind.
void expectDigestHoweverCut(IHash& hash, const Vector& vector)
{
    const std::size_t size = vector.message.size();
    for (const std::size_t piece : {size + 1, std::size_t{1} + size / 65537, std::size_t{31}, std::size_t{64},
                                    std::size_t{129}, std::size_t{4096}}) {
        tests::Course course;
        tests::MemoryStream stream(course, vector.message);
        EXPECT_EQ(codesOf(hash.calculate(&stream, static_cast<std::int32_t>(piece), 400, nullptr)), "0/0");
        std::string digest;
        EXPECT_EQ(codesOf(hash.getDigestHex(digest)), "0/0");
        EXPECT_EQ(digest, vector.digest) << vector.label << ", pieces of " << piece << " bytes";
    }
}

TEST(HashCatalogue, EveryRowGivesItsPublishedAndIndependentDigests)
{
    auto vectors = readVectors();
    for (const HashAlgorithm& row : hashCatalogue()) {
        const std::shared_ptr<IHash> hash = getHashCalculator(row.id.lib, row.id.alg);
        ASSERT_NE(hash, nullptr) << row.name;
        EXPECT_EQ(hash->getLibraryId(), row.id.lib);
        EXPECT_EQ(hash->getAlgorithmId(), row.id.alg) << row.name;
        EXPECT_EQ(hash->getDigestSize(), row.digestBytes) << row.name;
        std::size_t published = 0;
        const auto found = vectors.extract(std::string(row.name));
        ASSERT_FALSE(found.empty()) << row.name;
        for (const Vector& vector : found.mapped()) {
            expectDigestHoweverCut(*hash, vector);
            published += vector.label.find("-published") != std::string::npos ? 1 : 0;
        }
        EXPECT_GE(published, 1U) << row.name;
        EXPECT_GE(found.mapped().size() - published, 20U) << row.name << ", independent ones";
    }
    EXPECT_TRUE(vectors.empty()) << vectors.begin()->first << " is not in the catalogue";
}

} // namespace
} // namespace quillon::crypto
