#include "platform/qt/TaskbarProgress.h"
#include "platform/qt/UserPlaces.h"
#include "platform/qt/unix/SessionBusProbe.h"
#include "support/LauncherBus.h"
#include "support/QtWait.h"

#include <QElapsedTimer>
#include <QFile>
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
    EXPECT_EQ(QFile::permissions(store.path), kOwnerOnly);
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

// The program's connection to the bus is made once, so all that needs a bus is one test, behind the one that
// must not make it.
TEST(TaskbarProgress, TellsTheDockWhatChangesWhileItIsShown)
{
    tests::LauncherBus bus;
    ASSERT_TRUE(bus.isListening());
    auto progress = std::make_unique<TaskbarProgress>(0);
    progress->setValue(30);
    progress->show();
    ASSERT_TRUE(tests::waitFor([&bus] { return bus.updates().size() == 1; }));
    for (const int value : {55, 55, 400, -1})
        progress->setValue(value);
    progress->hide();
    progress->setValue(20);
    progress->show();
    progress.reset();
    const QStringList expected{"shown 0.3", "shown 0.55", "shown 1",   "shown 0",
                               "hidden 0",  "shown 0.2",  "hidden 0.2"};
    EXPECT_TRUE(tests::waitFor([&] { return bus.updates().size() >= expected.size(); }));
    EXPECT_EQ(bus.updates(), expected) << bus.updates().join(", ").toStdString();
    EXPECT_EQ(bus.application(), "application://example.quillon.Kestrum.desktop");
}

} // namespace
} // namespace quillon::platform
