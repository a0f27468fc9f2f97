// Settings that are a file and a writer that is killed, which only Unix has in this form.

#include "settings/CAppSettings.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace {

constexpr int kKills = 1000;
constexpr int kKeys = 15;
constexpr qint64 kSoonMs = 5'000;

QString keyName(int index)
{
    return QStringLiteral("Key%1").arg(index);
}

/// Gives all keys the same value, which only a whole file shows.
void writeAll(int value)
{
    CAppSettings settings;
    for (int key = 0; key < kKeys; ++key)
        settings.setValue(keyName(key), value);
}

QStringList valuesRead()
{
    const CAppSettings settings;
    QStringList values;
    for (int key = 0; key < kKeys; ++key)
        values.append(settings.value(keyName(key), -1).toString());
    return values;
}

pid_t startWriter()
{
    const pid_t writer = fork();
    if (writer == 0) {
        for (int value = 0;; ++value)
            writeAll(value);
    }
    return writer;
}

TEST(CAppSettings, OfAWriterThatIsKilledAThousandTimesAreNeverTorn)
{
    for (int kill_ = 0; kill_ < kKills; ++kill_) {
        const pid_t writer = startWriter();
        ASSERT_GT(writer, 0);
        usleep(static_cast<useconds_t>(kill_ % 100) * 40);
        kill(writer, SIGKILL);
        ASSERT_EQ(waitpid(writer, nullptr, 0), writer);
        QStringList values = valuesRead();
        ASSERT_EQ(values.size(), kKeys);
        ASSERT_EQ(values.removeDuplicates(), kKeys - 1) << values.join(' ').toStdString();
    }
    QElapsedTimer clock;
    clock.start();
    writeAll(-7);
    EXPECT_LT(clock.elapsed(), kSoonMs);
    EXPECT_EQ(valuesRead().count("-7"), kKeys);
}

TEST(CAppSettings, AreWrittenAtOnceWhereAKilledWriterLeftAnEmptyLock)
{
    const QString lock = CAppSettings().fileName() + ".lock";
    QFile file(lock);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QElapsedTimer clock;
    clock.start();
    writeAll(1);
    EXPECT_LT(clock.elapsed(), kSoonMs);
}

} // namespace
