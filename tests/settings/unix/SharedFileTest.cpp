// Settings that are a file, which several programs share and somebody may kill or replace, as only Unix has
// them in this form.

#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <vector>

namespace {

constexpr int kKills = 1000;
constexpr int kKeys = 15;
constexpr int kWrites = 200;

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
        if (writer == 0)
            for (int value = 0;; ++value)
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

/// Writes, and reads back at once, what nobody else writes. The exit code is the number of writes that are
/// lost, or 255 where Qt has something to say, as it does of a lock that somebody took away.
void writeOwn(const QString& key)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { _exit(255); });
    int lost = 0;
    for (int value = 0; value < kWrites; ++value) {
        CAppSettings().setValue(key, value);
        lost += CAppSettings().value(key, -1).toInt() == value ? 0 : 1;
    }
    _exit(std::min(lost, 254));
}

TEST(CAppSettings, OfTwoWritersAndTwoReadersLoseNothing)
{
    std::vector<pid_t> children;
    for (int child = 0; child < 4; ++child) {
        children.push_back(fork());
        ASSERT_GE(children.back(), 0);
        if (children.back() == 0 && child < 2)
            writeOwn(QString::number(child));
        while (children.back() == 0)
            static_cast<void>(CAppSettings().value("0"));
    }
    for (std::size_t writer = 0; writer < 2; ++writer) {
        int status = 0;
        ASSERT_EQ(waitpid(children.at(writer), &status, 0), children[writer]);
        EXPECT_EQ(status, 0) << "lost, or noisy";
    }
    for (std::size_t reader = 2; reader < 4; ++reader) {
        kill(children[reader], SIGKILL);
        waitpid(children[reader], nullptr, 0);
    }
}

TEST(CAppSettings, OfOneQtAreReadByTheOther)
{
    const QString name = QStringLiteral("Jürgen Ж");
    // As programs with Qt 5 and with Qt 6 write it.
    const QByteArray forms[] = {R"(J\xfcrgen \x416)", R"(@ByteArray(J\xc3\xbcrgen \xd0\x96))"};
    for (const QByteArray& form : forms) {
        QFile file(CAppSettings().fileName());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[General]\nNetProxyLogin=" + form + '\n');
        file.close();
        EXPECT_EQ(thisapp::settings::NetProxyLogin.read(CAppSettings()), name) << form.toStdString();
        CAppSettings().setValue("Other", name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QByteArray written = file.readAll();
        for (const QByteArray& known : forms)
            written.replace(known, "*");
        EXPECT_EQ(written, "[General]\nNetProxyLogin=*\nOther=*\n");
    }
}

TEST(CAppSettings, ThatAreAPipeHoldNothingAndHoldNobodyUp)
{
    const QByteArray name = CAppSettings().fileName().toUtf8();
    ASSERT_EQ(unlink(name.constData()), 0);
    ASSERT_EQ(mkfifo(name.constData(), S_IRWXU), 0);
    writeAll(1);
    EXPECT_EQ(valuesRead().count("-1"), kKeys);
}

} // namespace
