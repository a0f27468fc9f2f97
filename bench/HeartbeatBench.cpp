// bench_heartbeat FILE: whether the window stays alive while a slow file is digested.
//
// A timer of the main thread beats every 5 ms, first beside an idle window, then during a run in which each
// read takes 200 ms. Prints, for both, the 99th percentile and the longest of the gaps between beats.

#include "app/CMainWindow.h"
#include "support/ReadFaults.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int kBeatMs = 5;
constexpr int kSpanMs = 10'000;
constexpr unsigned kReadDelayMs = 200;

std::vector<qint64> gapsDuring(int spanMs)
{
    std::vector<qint64> gaps;
    QElapsedTimer sinceBeat;
    QTimer beat;
    beat.setTimerType(Qt::PreciseTimer);
    QObject::connect(&beat, &QTimer::timeout, [&] { gaps.push_back(sinceBeat.restart()); });
    sinceBeat.start();
    beat.start(kBeatMs);
    QElapsedTimer span;
    span.start();
    while (span.elapsed() < spanMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::sort(gaps.begin(), gaps.end());
    return gaps;
}

void print(const char* name, const std::vector<qint64>& gaps)
{
    std::printf("%-8s %6zu beats, 99 of 100 within %lld ms, longest %lld ms\n", name, gaps.size(),
                static_cast<long long>(gaps[gaps.size() * 99 / 100]), static_cast<long long>(gaps.back()));
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: bench_heartbeat FILE\n");
        return 2;
    }
    CMainWindow window;
    window.setCommandLine({QString::fromUtf8(argv[1])});
    window.show();
    static_cast<void>(QTest::qWaitForWindowExposed(&window));
    print("idle", gapsDuring(kSpanMs));
    using quillon::tests::ReadFaults;
    const ReadFaults faults(argv[1]);
    ReadFaults::delayMs = kReadDelayMs;
    QTest::keyClick(&window, Qt::Key_F5);
    print("running", gapsDuring(kSpanMs));
    std::printf("slow reads %u\n", ReadFaults::reads.load());
    return ReadFaults::reads > 0 ? 0 : 1;
}
