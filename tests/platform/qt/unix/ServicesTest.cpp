#include "platform/qt/TaskbarProgress.h"
#include "platform/qt/UserPlaces.h"
#include "platform/qt/unix/SessionBusProbe.h"
#include "support/LauncherBus.h"
#include "support/QtWait.h"
#include "support/TempFolder.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <memory>
#include <string>

namespace quillon::platform {
namespace {

constexpr QFile::Permissions kOwnerOnly =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;

class SettingsStoreTest : public testing::Test
{
protected:
    SettingsStoreTest() { qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.path().string())); }
    ~SettingsStoreTest() override { qputenv("XDG_CONFIG_HOME", m_former); }

    static QFile::Permissions permissionsAfterOpening()
    {
        return QFile::permissions(settingsStore("House", "Product").path);
    }

    tests::TempFolder folder;

private:
    QByteArray m_former = qgetenv("XDG_CONFIG_HOME");
};

TEST_F(SettingsStoreTest, IsMadeForItsOwnerAloneAndStaysSoWhenItIsWritten)
{
    EXPECT_EQ(permissionsAfterOpening(), kOwnerOnly);
    {
        const SettingsStore store = settingsStore("House", "Product");
        QSettings(store.path, store.format).setValue("Key", 1);
    }
    EXPECT_GT(QFileInfo(settingsStore("House", "Product").path).size(), 0);
    EXPECT_EQ(permissionsAfterOpening(), kOwnerOnly);
}

TEST_F(SettingsStoreTest, ThatOthersCouldReadIsClosedToThemWithItsContentsKept)
{
    const QString path = settingsStore("House", "Product").path;
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("[General]\nKey=7\n") > 0);
    ASSERT_TRUE(file.setPermissions(kOwnerOnly | QFile::ReadGroup | QFile::ReadOther));
    file.close();
    EXPECT_EQ(permissionsAfterOpening(), kOwnerOnly);
    EXPECT_EQ(QSettings(path, QSettings::IniFormat).value("Key").toInt(), 7);
}

// The program's connection to the bus is made once, so all that needs a bus is one test.
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

/// Where there should be a session bus: a socket that takes calls and never answers.
class MuteBus
{
public:
    MuteBus()
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const std::string path = m_folder.file("bus, mute").string();
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        m_isThere = bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                    listen(m_socket, 4) == 0;
        qputenv("DBUS_SESSION_BUS_ADDRESS",
                "tcp:host=x;unix:guid=0,path=" +
                    QByteArray::fromStdString(path).replace(",", "%2C").replace(" ", "%20"));
    }
    MuteBus(const MuteBus&) = delete;
    MuteBus& operator=(const MuteBus&) = delete;
    ~MuteBus()
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        close(m_socket);
    }

    [[nodiscard]] bool isThere() const noexcept { return m_isThere; }

    /// Whether somebody has called.
    [[nodiscard]] bool isCalled() const
    {
        pollfd wait{m_socket, POLLIN, 0};
        return poll(&wait, 1, 0) == 1;
    }

private:
    tests::TempFolder m_folder;
    int m_socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    bool m_isThere = false;
};

/// How many milliseconds a progress takes that is shown and gone.
qint64 timeOfOneProgress()
{
    QElapsedTimer timer;
    timer.start();
    {
        TaskbarProgress progress(0);
        progress.show();
        progress.setValue(50);
        EXPECT_LT(timer.elapsed(), 400) << "the caller was held up";
    }
    return timer.elapsed();
}

TEST(TaskbarProgress, WithoutABusIsSilentAndQuick)
{
    ASSERT_FALSE(qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"));
    EXPECT_LT(timeOfOneProgress(), 400);
}

// Were the bus library let at this bus, the program's end would wait for it for ever.
TEST(TaskbarProgress, OnABusThatNeverAnswersHoldsNobodyUp)
{
    const MuteBus bus;
    ASSERT_TRUE(bus.isThere());
    EXPECT_FALSE(answersSessionBus(std::chrono::milliseconds(50)));
    EXPECT_TRUE(bus.isCalled());
    EXPECT_LT(timeOfOneProgress(), 1500);
}

} // namespace
} // namespace quillon::platform
