#include "crypto/entry/HashEntry.h"

#include "crypto/PrintHashResult.h"
#include "crypto/TestDoubles.h"
#include "logger/Log.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon::crypto {
namespace {

using logger::ELogLevel;
using tests::TempFolder;

/// Writes log lines into a list, as "level category: message".
class ListAppender final : public logger::internal::LogAppender<char>
{
public:
    explicit ListAppender(std::vector<std::string>& lines)
        : LogAppender(1)
        , m_lines(lines)
    {
    }

    void append(std::uint64_t, std::uint32_t, std::uint32_t, ELogLevel level, const char* category,
                const char* message, std::uint32_t) override
    {
        m_lines.push_back(std::to_string(static_cast<int>(level)) + ' ' + category + ": " + message);
    }

    [[nodiscard]] bool isAsynchronous() const override { return false; }

private:
    std::vector<std::string>& m_lines;
};

class HashEntry : public testing::Test
{
protected:
    HashEntry()
    {
        EXPECT_TRUE(succeeded(logger::getLogSender()->appenders().addAppender(new ListAppender(lines))));
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

    static std::string utf8(const std::filesystem::path& path)
    {
        const std::u8string name = path.u8string();
        return {name.begin(), name.end()};
    }

    using Lines = std::vector<std::string>;
    Lines lines;
    TempFolder folder;
    const std::shared_ptr<IHash> sha256 = getHashCalculator(1, 11);
};

TEST_F(HashEntry, AnUndefinedLibraryIsLoggedAndGivesNoCalculator)
{
    EXPECT_EQ(getHashCalculator(10, 1), nullptr);
    EXPECT_EQ(getHashCalculator(4294967295, 1), nullptr);
    EXPECT_EQ(lines, (Lines{"2 getHashCalculator: Undefined library type: 10",
                            "2 getHashCalculator: Undefined library type: 4294967295"}));
}

TEST_F(HashEntry, AnAlgorithmOfTheOtherLibraryIsLoggedAndGivesNoCalculator)
{
    EXPECT_EQ(getHashCalculator(1, 100), nullptr);
    EXPECT_EQ(getHashCalculator(300, 1), nullptr);
    EXPECT_EQ(lines, (Lines{
                         "2 getHashCalculator: Failed to load cryptographic engine (cpp). Error: 5/70",
                         "2 getHashCalculator: Failed to load cryptographic engine (sk). Error: 5/70",
                     }));
}

TEST_F(HashEntry, AMissingCalculatorIsReportedBeforeTheFileIsLookedAt)
{
    EXPECT_EQ(calculateHash(fileNamed(""), nullptr, nullptr), (HashResult{{5, 4006}, {}}));
    EXPECT_EQ(lines, (Lines{"2 calculateHash: Cryptographic engine is not loaded"}));
}

TEST_F(HashEntry, AnEmptyFileNameIsReported)
{
    EXPECT_EQ(calculateHash(fileNamed(""), sha256, nullptr), (HashResult{{5, 200}, {}}));
    EXPECT_EQ(lines, (Lines{"2 calculateHash: File not defined"}));
}

TEST_F(HashEntry, AFileThatCannotBeOpenedGivesTheErrorOfTheSystemAndNoCallback)
{
    tests::Events events;
    tests::RecordingCallback callback(events);
    const std::string missing = utf8(folder.file("missing"));
    EXPECT_EQ(calculateHash(fileNamed(missing), sha256, &callback), (HashResult{{1, ENOENT}, {}}));
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(lines, (Lines{"2 calculateHash: Failed to open file. Error: 1/" + std::to_string(ENOENT)}));
}

TEST_F(HashEntry, NothingIsLoggedWhileTheErrorLevelIsOff)
{
    logger::getLogSender()->setLevel(ELogLevel::Fatal);
    EXPECT_EQ(getHashCalculator(10, 1), nullptr);
    EXPECT_FALSE(succeeded(calculateHash(fileNamed(""), sha256, nullptr)));
    EXPECT_TRUE(lines.empty());
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
        const std::string name = utf8(folder.write(entry.name, entry.bytes));
        EXPECT_EQ(calculateHash(fileNamed(name), sha256, nullptr), HashResult{}) << name;
        std::string digest;
        EXPECT_EQ(sha256->getDigestHex(digest), HashResult{});
        EXPECT_EQ(digest, entry.digest) << name;
    }
    EXPECT_TRUE(lines.empty());
}

TEST_F(HashEntry, TheCallbackHearsTheWholeRun)
{
    tests::Events events;
    tests::RecordingCallback callback(events);
    const std::string name = utf8(folder.write("file", "abc"));
    EXPECT_EQ(calculateHash(fileNamed(name), sha256, &callback), HashResult{});
    EXPECT_EQ(events, (tests::Events{"started", "progress", "finished"}));
}

} // namespace
} // namespace quillon::crypto
