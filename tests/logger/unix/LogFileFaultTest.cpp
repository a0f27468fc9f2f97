// What can happen to the log file on a system that lets anybody rename, remove and replace an open file.

#include "logger/LogFileTest.h"

#include <sys/resource.h>

#include <array>
#include <csignal>

namespace quillon::logger {
namespace {

namespace fs = std::filesystem;
using tests::lineOf;
using LogFileFault = tests::LogFileTest;

TEST_F(LogFileFault, FileAndFolderAreTheirOwnersAloneAlsoWhereOthersCouldReadTheFile)
{
    constexpr fs::perms kOwnerOnly = fs::perms::owner_read | fs::perms::owner_write;
    ASSERT_TRUE(logsAfter("", "first"));
    EXPECT_EQ(fs::status(path).permissions(), kOwnerOnly);
    for (const fs::path& made : {path.parent_path(), path.parent_path().parent_path()})
        EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all);
    fs::permissions(path, kOwnerOnly | fs::perms::others_read | fs::perms::group_write);
    restart();
    ASSERT_TRUE(logsAfter(lineOf("first"), "second"));
    EXPECT_EQ(fs::status(path).permissions(), kOwnerOnly);
}

TEST_F(LogFileFault, LinesGoToTheNameAfterTheOpenFileWasRenamedOrRemoved)
{
    ASSERT_TRUE(logsAfter("", "first"));
    fs::rename(path, folder.file("old.log"));
    EXPECT_TRUE(logsAfter("", "second"));
    fs::remove_all(path.parent_path());
    EXPECT_TRUE(logsAfter("", "third"));
}

TEST_F(LogFileFault, ALineCutByAFullDiskIsEndedBeforeTheNext)
{
    ASSERT_TRUE(logsAfter("", "first"));
    // A limit of the process stands for the end of the disk, in the middle of a line.
    std::signal(SIGXFSZ, SIG_IGN);
    const std::string letters(50, 'x');
    const std::string cut = lineOf("first") + lineOf(letters).substr(0, 60);
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit full{cut.size(), former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    append(letters);
    EXPECT_TRUE(tests::waitUntil([&] { return content() == cut; }));
    setrlimit(RLIMIT_FSIZE, &former);
    ASSERT_TRUE(logsAgain("second"));
    EXPECT_TRUE(content().starts_with(cut + '\n' + lineOf("second"))) << content();
}

TEST_F(LogFileFault, TwoWritersOfOneFileTearAndLoseNoLine)
{
    Appender other(2, tests::utf8Name(path));
    ASSERT_TRUE(err::succeeded(other.start()));
    std::array<std::string, 2> expected;
    for (std::size_t i = 0; i < 10'000; ++i) {
        // Some longer than a page, so that lines lie across the end of every buffer.
        const std::string message(i % 40 == 0 ? 9000 : i % 31, static_cast<char>('A' + i % 26));
        const auto writer = static_cast<std::uint32_t>(i % 2);
        expected.at(writer) += lineOf(message, writer);
        (writer == 0 ? *appender : other).append(0, 1, writer, ELogLevel::Error, "test", message.c_str(), 0);
    }
    EXPECT_TRUE(tests::waitUntil([&] {
        std::array<std::string, 2> found;
        std::istringstream lines(content());
        for (std::string line; std::getline(lines, line);) {
            if (!line.empty()) // a writer that opens the file in the middle of another's write may leave one
                found.at(line.starts_with(lineOf("", 1).substr(0, 23)) ? 1 : 0) += line + '\n';
        }
        return found == expected;
    }));
}

} // namespace
} // namespace quillon::logger
