#include "platform/qt/TaskbarProgress.h"
#include "platform/qt/UserPlaces.h"
#include "platform/qt/unix/SessionBusProbe.h"
#include "support/Wait.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <thread>

namespace quillon::platform {
namespace {

constexpr QFile::Permissions kOwnerOnly =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;

TEST(SettingsStore, IsTheOwnersAloneHoweverItComesToBe)
{
    const SettingsStore store = settingsStore("House", "Product");
    EXPECT_EQ(store.path, qgetenv("XDG_CONFIG_HOME") + "/House/Product.conf");
    EXPECT_FALSE(QFile::exists(store.path)) << "a look alone makes nothing";
    prepareWrite(store);
    EXPECT_EQ(QFile::permissions(store.path), kOwnerOnly);
    EXPECT_EQ(QFile::permissions(QFileInfo(store.path).path()),
              kOwnerOnly | QFile::ExeOwner | QFile::ExeUser);
    QSettings(store.path, store.format).setValue("Key", 7);
    EXPECT_EQ(QFile::permissions(store.path), kOwnerOnly) << "once it is written";
    QFile::setPermissions(store.path, kOwnerOnly | QFile::ReadGroup | QFile::ReadOther);
    EXPECT_EQ(settingsStore("House", "Product").path, store.path);
    EXPECT_EQ(QFile::permissions(store.path), kOwnerOnly) << "where others could read it";
    EXPECT_EQ(QSettings(store.path, QSettings::IniFormat).value("Key").toInt(), 7);
}

/// Whether a progress is shown and gone within so many milliseconds, and none of its calls waits.
void expectProgressWithin(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    {
        TaskbarProgress progress(0);
        progress.show();
        progress.setValue(50);
        EXPECT_LT(timer.elapsed(), 400) << "the caller was held up";
    }
    EXPECT_LT(timer.elapsed(), milliseconds);
}

// Were the bus library let at a bus that does not answer, the program's end would wait for it for ever.
TEST(TaskbarProgress, WithoutABusThatAnswersIsSilentAndHoldsNobodyUp)
{
    expectProgressWithin(400); // as main leaves no address of a bus
    const QByteArray path = qgetenv("XDG_RUNTIME_DIR") + "/bus, mute";
    qputenv("DBUS_SESSION_BUS_ADDRESS", "tcp:host=x;unix:guid=0,path=" + path.toPercentEncoding("/"));
    EXPECT_FALSE(answersSessionBus(tests::kWaitLimit)) << "no socket";
    QLocalServer bus;
    ASSERT_TRUE(bus.listen(QString(path)));
    EXPECT_FALSE(answersSessionBus(std::chrono::milliseconds(50))) << "takes calls and never answers";
    expectProgressWithin(1500);
    std::thread hangUp([socket = static_cast<int>(bus.socketDescriptor())] {
        for (int call = 0; call < 3; ++call) // those above, and one more
            close(accept(socket, nullptr, nullptr));
    });
    EXPECT_FALSE(answersSessionBus(tests::kWaitLimit)) << "hangs up";
    hangUp.join();
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

} // namespace
} // namespace quillon::platform
