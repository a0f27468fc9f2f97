#include "platform/qt/SettingsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon::platform {
namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

/// QSettings would create the file readable by everybody, but keeps the permissions of one that exists.
void makeOwnerOnlyFile(const QString& path)
{
    QDir().mkpath(QFileInfo(path).path());
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (stat(name.constData(), &status) == 0) {
        if (S_ISREG(status.st_mode) && (status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
            static_cast<void>(chmod(name.constData(), status.st_mode & S_IRWXU));
        return;
    }
    const int descriptor = open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerOnly);
    if (descriptor >= 0)
        close(descriptor);
}

} // namespace

SettingsStore settingsStore(const QString& organisation, const QString& product)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QString path = folder + '/' + organisation + '/' + product + QStringLiteral(".conf");
    makeOwnerOnlyFile(path);
    return {path, QSettings::IniFormat};
}

} // namespace quillon::platform
