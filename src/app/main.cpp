#include "app/CMainWindow.h"
#include "app/StartLanguage.h"
#include "i18n_qt/MyTranslator.h"
#include "platform/Process.h"
#include "platform/RuntimeLibrary.h"
#include "platform/qt/QtVersion.h"
#include "ui/Appearance.h"
#include "vars/Product.h"

#include <QApplication>
#include <QIcon>

#include <cstdlib>

namespace {

namespace vars = quillon::vars;

void setIdentity()
{
    const QString organisation = QString::fromUtf8(vars::kOrganisation);
    QCoreApplication::setOrganizationName(organisation);
    QCoreApplication::setOrganizationDomain(organisation);
    QCoreApplication::setApplicationName(QString::fromUtf8(vars::kProductName));
}

QStringList commandLine(int argc, const char* const* argv)
{
    QStringList arguments;
    for (const std::string& argument : quillon::platform::programArguments(argc, argv))
        arguments.append(QString::fromStdString(argument));
    return arguments;
}

/// What must stand before the application object is made.
void prepareToolkit()
{
    quillon::platform::useDefaultsOfQt6();
    // A desktop at 125 or 150 % would get 100 or 200 % otherwise.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

/// The exit status, once the window has been closed and has gone.
int runMainWindow(const QStringList& arguments)
{
    CMainWindow window;
    window.setWindowIcon(QIcon(QStringLiteral(":/kestrum/main.ico")));
    window.setCommandLine(arguments);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    quillon::platform::restrictLibrarySearch();
    quillon::platform::dropRelativeFolders();
    setIdentity();
    loadStartLanguage();
    // Taken now, as the application object removes the arguments that it knows.
    const QStringList arguments = commandLine(argc, argv);
    prepareToolkit();
    MyTranslator translator;
    const QApplication application(argc, argv);
    QCoreApplication::installTranslator(&translator);
    QGuiApplication::setDesktopFileName(QString::fromUtf8(vars::kDesktopId));
    useLightPaletteOnDarkDesktop();
    const int status = runMainWindow(arguments);
    // On Wayland the two threads of Qt's connection can wait for each other at its end, and the process then
    // stays for ever. All that has to be written or taken back is so by now.
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        std::_Exit(status);
    return status;
}
