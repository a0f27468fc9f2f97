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

/// Gives all keys the same value, which only a whole file shows.
void writeAll(int value)
{
    CAppSettings settings;
    for (int key = 0; key < kKeys; ++key)
        settings.setValue(QString::number(key), value);
}

QStringList valuesRead()
{
    const CAppSettings settings;
    QStringList values;
    for (int key = 0; key < kKeys; ++key)
        values.append(settings.value(QString::number(key), -1).toString());
    return values;
}

TEST(CAppSettings, OfAWriterThatIsKilledAThousandTimesAreNeverTornAndCanBeWrittenAtOnce)
{
    for (int round = 0; round < kKills; ++round) {
        const pid_t writer = fork();
        ASSERT_GE(writer, 0);
        for (int value = 0; writer == 0; ++value)
            writeAll(value);
        usleep(static_cast<useconds_t>(round % 100) * 40);
        kill(writer, SIGKILL);
        ASSERT_EQ(waitpid(writer, nullptr, 0), writer);
        ASSERT_EQ(valuesRead().removeDuplicates(), kKeys - 1) << valuesRead().join(' ').toStdString();
    }
    // As a writer leaves it that is killed early.
    ASSERT_TRUE(QFile(CAppSettings().fileName() + ".lock").open(QIODevice::WriteOnly));
    QElapsedTimer clock;
    clock.start();
    writeAll(-7);
    EXPECT_LT(clock.elapsed(), 5'000) << "milliseconds";
    EXPECT_EQ(valuesRead().count("-7"), kKeys);
}

} // namespace
