// The entry function of the test programs that need an application object.

#include "platform/qt/QtVersion.h"
#include "support/TempFolder.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

/// Keeps the tests off the user's own settings, desktop and language.
void leaveTheUsersSession(const quillon::tests::TempFolder& home)
{
    // The runtime folder has to be the user's alone.
    std::filesystem::permissions(home.path(), std::filesystem::perms::owner_all);
    const QByteArray folder = QByteArray::fromStdString(quillon::tests::utf8Name(home.path()));
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, folder);
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("LC_ALL", "C.UTF-8");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace

int main(int argc, char* argv[])
{
    const quillon::tests::TempFolder home;
    leaveTheUsersSession(home);
    // As the program does, so that file names mean the same here and there.
    quillon::platform::useDefaultsOfQt6();
    // The tests answer Qt's own dialogs; the desktop's would be out of their reach.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
