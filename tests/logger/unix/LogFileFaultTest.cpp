// What can happen to the log file on a system that lets anybody rename, remove and replace an open file.

#include "logger/LogFileTest.h"
#include "logger/NumberedLines.h"
#include "platform/Files.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

namespace quillon::logger {
namespace {

namespace fs = std::filesystem;
using tests::lineOf;
using tests::waitUntil;

class LogFileFault : public tests::LogFileTest
{
protected:
    LogFileFault() { fs::create_directories(path.parent_path()); }

    void openFile() const
    {
        append("first");
        ASSERT_TRUE(waitForContent(lineOf("first")));
    }
};

TEST_F(LogFileFault, FileAndFolderAreTheirOwnersAlone)
{
    fs::remove_all(path.parent_path().parent_path());
    openFile();
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    for (const fs::path& made : {path.parent_path(), path.parent_path().parent_path()})
        EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all);
}

TEST_F(LogFileFault, AFileThatOthersCouldReadIsClosedToThem)
{
    std::ofstream(path) << "";
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
    openFile();
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(LogFileFault, LinesGoToTheNameAfterTheOpenFileWasRenamedOrRemoved)
{
    openFile();
    fs::rename(path, folder.file("old.log"));
    append("second");
    EXPECT_TRUE(waitForContent(lineOf("second")));
    fs::remove_all(path.parent_path());
    append("third");
    EXPECT_TRUE(waitForContent(lineOf("third")));
}

TEST_F(LogFileFault, LoggingGoesOnWhenTheDiskIsNoLongerFull)
{
    fs::create_symlink("/dev/full", path);
    for (int i = 0; i < 1000; ++i)
        append(std::string(500, 'x'));
    fs::remove(path);
    EXPECT_TRUE(logsAgain("kept"));
}

/// Holds the process's files at a size, as a full disk would in the middle of a line.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, SIG_DFL);
    }

private:
    rlimit m_former{};
};

TEST_F(LogFileFault, ALineCutByAFullDiskIsEndedBeforeTheNext)
{
    openFile();
    const std::size_t cut = lineOf("first").size() + 40;
    {
        const FileSizeLimit limit(cut);
        append("a line that finds no room for all of its letters");
        ASSERT_TRUE(waitUntil([&] { return content().size() == cut; }));
    }
    ASSERT_TRUE(logsAgain("second"));
    EXPECT_EQ(content().substr(0, cut + 1 + lineOf("second").size()),
              content().substr(0, cut) + '\n' + lineOf("second"));
}

// A pipe without a reader would hold up whoever opens it, and one with a full buffer whoever writes.
TEST_F(LogFileFault, APipeInTheFilesPlaceIsRefusedAtOnceUntilItIsGone)
{
    ASSERT_EQ(mkfifo(path.c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_FALSE(platform::openLogFile(path, platform::LogFileStart::Keep));
    std::fstream reader(path);
    EXPECT_FALSE(platform::openLogFile(path, platform::LogFileStart::Keep)) << "with a reader";
    append("lost");
    fs::remove(path);
    EXPECT_TRUE(logsAgain("kept"));
}

// Root may write in every folder, so what stands in the way of the folder is a file.
TEST_F(LogFileFault, LoggingBeginsWhenTheFolderCanBeMade)
{
    fs::remove(path.parent_path());
    const fs::path obstacle = folder.write("logs \xC3\xA4\xE6\x96\x87/deep", "in the way");
    append("lost");
    fs::remove(obstacle);
    EXPECT_TRUE(logsAgain("kept"));
}

TEST_F(LogFileFault, TwoWritersOfOneFileAtFullSpeedTearNoLine)
{
    auto other = std::make_unique<LogAppenderUtf8File>(2, tests::utf8Name(path));
    ASSERT_TRUE(err::succeeded(other->start()));
    tests::logAtFullSpeed(path, [&](auto goesOn) {
        std::vector<std::jthread> threads;
        threads.emplace_back([&, goesOn] { tests::appendNumbers(*appender, 1, goesOn); });
        threads.emplace_back([&, goesOn] { tests::appendNumbers(*other, 2, goesOn); });
        return threads;
    });
    appender.reset();
    other.reset();
    EXPECT_FALSE(tests::wholeLines(content()).empty());
}

} // namespace
} // namespace quillon::logger
