// What can happen to the log file on a system that lets anybody rename, remove and replace an open file.

#include "logger/LogFileTest.h"

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <thread>
#include <vector>

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
    const std::string line = lineOf("a line that finds no room for all of its letters");
    const std::string cut = lineOf("first") + line.substr(0, line.size() / 2);
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit full{cut.size(), former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    append("a line that finds no room for all of its letters");
    EXPECT_TRUE(tests::waitUntil([&] { return content() == cut; }));
    setrlimit(RLIMIT_FSIZE, &former);
    ASSERT_TRUE(logsAgain("second"));
    EXPECT_TRUE(content().starts_with(cut + '\n' + lineOf("second"))) << content();
}

TEST_F(LogFileFault, TwoWritersForFourThreadsEachTearAndLoseNoLine)
{
    constexpr std::uint32_t kLines = 1250; // of a thread; four have room in a queue
    // Often longer than a page, so that lines lie across the end of every buffer.
    const auto message = [](std::uint32_t i) {
        return std::to_string(i) + std::string(i % 9 == 0 ? 9000 : i % 31, 'x') + '.';
    };
    Appender other(2, tests::utf8Name(path));
    ASSERT_TRUE(err::succeeded(other.start()));
    std::vector<std::jthread> threads;
    for (const std::uint32_t thread : {0, 1, 2, 3, 4, 5, 6, 7}) {
        threads.emplace_back([&, thread, &writer = thread % 2 == 0 ? *appender : other] {
            for (std::uint32_t i = 0; i < kLines; ++i)
                writer.append(0, 1, thread, ELogLevel::Error, "test", message(i).c_str(), 0);
        });
    }
    const auto hasAllInOrder = [&] {
        std::array<std::uint32_t, 8> next{};
        std::istringstream lines(content());
        for (std::string line; std::getline(lines, line);) {
            for (std::uint32_t thread = 0; thread < next.size(); ++thread)
                next.at(thread) += line + '\n' == lineOf(message(next.at(thread)), thread) ? 1 : 0;
        }
        return std::ranges::count(next, kLines) == 8;
    };
    EXPECT_TRUE(tests::waitUntil(hasAllInOrder));
}

} // namespace
} // namespace quillon::logger
