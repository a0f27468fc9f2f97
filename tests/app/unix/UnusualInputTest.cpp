// What a Unix system has beside plain files, and what it can refuse.

#include "app/MainWindowTest.h"
#include "support/OrdinaryUser.h"

#include <pthread.h>
#include <sys/stat.h>

#include <filesystem>

namespace quillon::tests {
namespace {

using UnusualInput = MainWindowTest;

void expectFailure(const QString& file, const char* sentence)
{
    MainWindowDriver driver({file});
    ASSERT_TRUE(driver.run()) << file.toStdString();
    EXPECT_EQ(driver.result(), errorResult(sentence)) << file.toStdString();
    EXPECT_EQ(driver.caption(), "Calculated hash for the file");
}

TEST_F(UnusualInput, WhatHasNoFixedBytesIsRefusedAtOnce)
{
    const QString pipe = nameOf("pipe");
    ASSERT_EQ(mkfifo(pipe.toStdString().c_str(), S_IRWXU), 0);
    expectFailure(folderName(), "Is a directory (error: 1/21)");
    for (const QString& file : {pipe, QString("/dev/zero"), QString("/proc/self/status")})
        expectFailure(file, "Operation not supported (error: 1/95)");
}

TEST_F(UnusualInput, AFileThatMayNotBeReadIsNamedSo)
{
    const QString file = write("secret", "secret");
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder.file("secret"), std::filesystem::perms::none);
    const OrdinaryUser user;
    expectFailure(file, "Permission denied (error: 1/13)");
}

/// While it lives, new threads ask for a stack that no system has.
class NoRoomForThreads
{
public:
    NoRoomForThreads()
    {
        pthread_getattr_default_np(&m_former);
        pthread_attr_t huge = m_former;
        pthread_attr_setstacksize(&huge, kTooManyBytes);
        pthread_setattr_default_np(&huge);
    }
    NoRoomForThreads(const NoRoomForThreads&) = delete;
    NoRoomForThreads& operator=(const NoRoomForThreads&) = delete;
    ~NoRoomForThreads() { pthread_setattr_default_np(&m_former); }

private:
    static constexpr std::size_t kTooManyBytes = std::size_t{1} << 47;

    pthread_attr_t m_former;
};

TEST_F(UnusualInput, ARunThatGetsNoThreadIsReportedAndTheNextOneWorks)
{
    MainWindowDriver driver({write("file", "file")});
    {
        const NoRoomForThreads shortage;
        driver.press(Qt::Key_F5);
    }
    EXPECT_EQ(driver.result(), errorResult("Failed to start the hash calculation. (error: 5/303)"));
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(driver.result(), sha256Result("file"));
}

} // namespace
} // namespace quillon::tests
