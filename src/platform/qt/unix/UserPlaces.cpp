#include "platform/qt/UserPlaces.h"

#include "platform/Files.h"
#include "platform/unix/Posix.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/file.h>

#include <chrono>
#include <thread>

namespace quillon::platform {
namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

/// QSettings would create both readable by everybody, but keeps the permissions of what exists.
void makeOwnerOnlyFile(const QString& path)
{
    createFolders(QFile::encodeName(QFileInfo(path).path()).toStdString());
    const QByteArray name = QFile::encodeName(path);
    const Descriptor made(open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerOnly));
}

/// Takes the rights of others away from the file. False where something has the name that is none and cannot
/// be read like one.
bool isUsable(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (stat(name.constData(), &status) != 0)
        return true;
    if (S_ISREG(status.st_mode) && (status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        static_cast<void>(chmod(name.constData(), status.st_mode & S_IRWXU));
    // A folder holds nobody up, and nothing can be written in its place.
    return S_ISREG(status.st_mode) || S_ISDIR(status.st_mode);
}

// A writer makes its lock file first and takes the native lock on it right after that. Nobody is between the
// two for as long as this.
constexpr std::chrono::seconds kLeastAgeOfAbandoned{2};

std::chrono::nanoseconds writtenAt(const struct stat& status)
{
    return std::chrono::seconds(status.st_mtim.tv_sec) + std::chrono::nanoseconds(status.st_mtim.tv_nsec);
}

bool isSameLock(const struct stat& a, const struct stat& b)
{
    return isSameFile(a, b) && writtenAt(a) == writtenAt(b);
}

/// Waits until the lock file with this name is old, and tells which one it is; false where it goes before
/// that, or another comes.
bool waitForOldLock(const QByteArray& name, struct stat& first)
{
    constexpr std::chrono::milliseconds kPause{10};
    if (stat(name.constData(), &first) != 0)
        return false;
    const auto end = std::chrono::system_clock::time_point(writtenAt(first)) + kLeastAgeOfAbandoned;
    // The file's clock may be that of a server.
    const auto latestEnd = std::chrono::steady_clock::now() + kLeastAgeOfAbandoned;
    while (std::chrono::system_clock::now() < end && std::chrono::steady_clock::now() < latestEnd) {
        std::this_thread::sleep_for(kPause);
        struct stat now = {};
        if (stat(name.constData(), &now) != 0 || !isSameLock(now, first))
            return false;
    }
    return true;
}

/// QLockFile keeps a native lock on its file for as long as it holds it, so an old lock file without one was
/// left by a process that was killed. QLockFile itself would wait half a minute for an empty one, and a
/// writer killed while it takes another's lock file away leaves a lock for the next one to stumble over.
void removeAbandonedLock(const QByteArray& name, const struct stat& old)
{
    const Descriptor lock(open(name.constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat opened = {};
    struct stat named = {};
    // Before and after each step the name may come to belong to another process's lock.
    const bool isOld = lock.isOpen() && fstat(lock.get(), &opened) == 0 && isSameLock(opened, old);
    if (isOld && flock(lock.get(), LOCK_EX | LOCK_NB) == 0 && stat(name.constData(), &named) == 0 &&
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
    // QSettings would wait for somebody to write into a pipe. Below what is no folder it finds nothing.
    return {isUsable(path) ? path : path + QStringLiteral("/none"), QSettings::IniFormat};
}

void prepareWrite(const SettingsStore& store)
{
    makeOwnerOnlyFile(store.path);
    // The second is the lock under which QLockFile takes away a stale first one.
    for (const char* suffix : {".lock", ".lock.rmlock"}) {
        const QByteArray name = QFile::encodeName(store.path) + suffix;
        struct stat old = {};
        if (waitForOldLock(name, old))
            removeAbandonedLock(name, old);
    }
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
