#include "platform/qt/UserPlaces.h"

#include "platform/unix/Posix.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/file.h>

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
    const Descriptor made(open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerOnly));
}

/// QLockFile keeps a native lock on its file for as long as it holds it, so a lock file without one was left
/// by a process that was killed. QLockFile itself would wait half a minute for an empty one, and a writer
/// killed while it takes another's lock file away leaves a lock for the next one to stumble over.
void removeAbandonedLock(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const Descriptor lock(open(name.constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat opened = {};
    struct stat named = {};
    const bool isFree = lock.isOpen() && flock(lock.get(), LOCK_EX | LOCK_NB) == 0;
    // By now the name may belong to another process's lock.
    if (isFree && fstat(lock.get(), &opened) == 0 && stat(name.constData(), &named) == 0 &&
        isSameFile(opened, named))
        unlink(name.constData());
}

} // namespace

QString userDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

SettingsStore settingsStore(const QString& organisation, const QString& product)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QString path = folder + '/' + organisation + '/' + product + QStringLiteral(".conf");
    makeOwnerOnlyFile(path);
    // The second is the lock under which QLockFile takes away a stale first one.
    for (const char* suffix : {".lock", ".lock.rmlock"})
        removeAbandonedLock(path + QLatin1String(suffix));
    return {path, QSettings::IniFormat};
}

QString sendToLinkPath(const QString& /*productName*/, const QString& productId)
{
    const QString folder = userDataFolder();
    return folder.isEmpty() ? QString() : folder + "/Thunar/sendto/" + productId + ".desktop";
}

QString allFilesPattern()
{
    // "*.*" would hide every name without a dot here.
    return QStringLiteral(" (*)");
}

} // namespace quillon::platform
