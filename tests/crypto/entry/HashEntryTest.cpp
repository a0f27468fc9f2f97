#include "crypto/entry/HashEntry.h"

#include "crypto/HashCatalogue.h"
#include "crypto/TestDoubles.h"
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
#include <string_view>
#include <tuple>
#include <vector>

namespace quillon::crypto {
namespace {

using logger::ELogLevel;
using tests::codesOf;

/// A message and its digest; docs/test-vectors.md tells of the files they come from.
struct Vector
{
    std::string file;
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
        throw std::runtime_error("a vector file has an unknown key: " + key);
    return std::string(std::stoul(value), tests::bytesFromHex(value.substr(value.find(' ') + 1)).at(0));
}

/// All vectors by the name of their algorithm.
std::map<std::string, std::vector<Vector>> readVectors()
{
    std::map<std::string, std::vector<Vector>> all;
    for (const auto& entry : std::filesystem::directory_iterator(KESTRUM_TEST_DATA "/crypto/vectors")) {
        std::ifstream file(entry.path());
        std::string algorithm, message, line;
        while (std::getline(file, line)) {
            if (line.empty() || line.front() == '#')
                continue;
            const std::size_t equals = line.find('=');
            const std::string key(text::trimAscii(line.substr(0, equals)));
            const std::string value(text::trimAscii(line.substr(equals + 1)));
            if (key == "algorithm")
                algorithm = value;
            else if (key == "out")
                all[algorithm].push_back({entry.path().stem().string(), message, value});
            else
                message = messageOf(key, value);
        }
    }
    return all;
}

std::string digestOf(const IHash& hash)
{
    std::string hex;
    EXPECT_EQ(codesOf(hash.getDigestHex(hex)), "0/0");
    return hex;
}

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

// One calculator for all pieces, so each run also shows that the one before has left nothing behind.
void expectDigestHoweverCut(IHash& hash, const Vector& vector)
{
    const std::size_t size = vector.message.size();
    for (const std::size_t piece : {size + 1, std::size_t{1} + size / 65537, std::size_t{31}, std::size_t{64},
                                    std::size_t{129}, std::size_t{4096}}) {
        tests::Course course;
        tests::MemoryStream stream(course, vector.message);
        EXPECT_EQ(codesOf(hash.calculate(&stream, static_cast<std::int32_t>(piece), 400, nullptr)), "0/0");
        EXPECT_EQ(digestOf(hash), vector.digest) << vector.file << ", pieces of " << piece << " bytes";
    }
}

TEST(HashCatalogue, EveryRowGivesItsPublishedAndIndependentDigests)
{
    auto vectors = readVectors();
    for (const HashAlgorithm& row : hashCatalogue()) {
        const std::shared_ptr<IHash> hash = getHashCalculator(row.id.lib, row.id.alg);
        ASSERT_NE(hash, nullptr) << row.name;
        EXPECT_EQ(row.strong, row.id.alg < 300) << "checksums and broken digests are weak: " << row.name;
        EXPECT_EQ(hash->getLibraryId(), row.id.lib);
        EXPECT_EQ(hash->getAlgorithmId(), row.id.alg) << row.name;
        EXPECT_EQ(hash->getDigestSize(), row.digestBytes) << row.name;
        std::size_t published = 0;
        const auto found = vectors.extract(std::string(row.name));
        ASSERT_FALSE(found.empty()) << row.name;
        for (const Vector& vector : found.mapped()) {
            expectDigestHoweverCut(*hash, vector);
            published += vector.file.ends_with("-published") ? 1 : 0;
        }
        EXPECT_GE(published, 1U) << row.name;
        EXPECT_GE(found.mapped().size() - published, 20U) << row.name << ", independent ones";
    }
    EXPECT_TRUE(vectors.empty()) << vectors.begin()->first << " is not in the catalogue";
}

TEST(HashCatalogue, WhatIsNotInTheTableIsNotFound)
{
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

} // namespace
} // namespace quillon::crypto
