// bench_log: what a log statement costs its caller, told in uncontended lock and unlock pairs.
//
// Times, in turn: pairs on a std::mutex, a statement at a level that is off, and one that is on with the log
// file as its appender, in bursts that leave room in the file's queue. Prints the medians of the rounds in
// nanoseconds of the calling thread's CPU time, and the ratios to the pair.

#include "AllocationCount.h"

#include "logger/Log.h"
#include "logger/LogAppenderUtf8File.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace {

namespace logger = quillon::logger;
using logger::ELogLevel;

constexpr int kRounds = 101;
constexpr int kBurst = 2'000;

double threadNanoseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

template <class Step>
double costOf(Step step)
{
    const double begin = threadNanoseconds();
    for (int i = 0; i < kBurst; ++i)
        step(i);
    return (threadNanoseconds() - begin) / kBurst;
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void logNumber(ELogLevel level, int number)
{
    logger::log(level, "hash", [number](auto& record) { record << "Blocks read so far: " << number; });
}

/// Until the file stops growing, so that the next burst finds the queue empty.
void waitForWriter(const std::filesystem::path& path)
{
    std::uintmax_t former = 0;
    std::error_code missing;
    for (std::uintmax_t size = 1; size != former; former = size, size = file_size(path, missing))
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
}

} // namespace

int main()
{
    const quillon::tests::TempFolder folder;
    const auto path = folder.file("bench.log");
    auto file = std::make_unique<logger::LogAppenderUtf8File>(1, quillon::tests::utf8Name(path));
    auto* const sender = logger::getLogSender();
    if (!succeeded(file->start()) || !succeeded(sender->appenders().addAppender(file.release())))
        return 1;
    sender->setLevel(ELogLevel::Information);
    std::mutex mutex;
    std::vector<double> pair;
    std::vector<double> off;
    std::vector<double> on;
    long allocations = 0;
    for (int round = 0; round < kRounds; ++round) {
        pair.push_back(costOf([&mutex](int) { const std::lock_guard guard(mutex); }));
        const long before = quillon::tests::allocationCount();
        const double cost = costOf([](int i) { logNumber(ELogLevel::Debug, i); });
        allocations += quillon::tests::allocationCount() - before;
        off.push_back(cost);
        on.push_back(costOf([](int i) { logNumber(ELogLevel::Information, i); }));
        waitForWriter(path);
    }
    sender->appenders().removeAllAppenders();
    const double unit = median(pair);
    std::printf("lock and unlock  %7.1f ns\n", unit);
    std::printf("statement, off   %7.1f ns, %5.1f pairs, %ld allocations\n", median(off), median(off) / unit,
                allocations);
    std::printf("statement, on    %7.1f ns, %5.1f pairs\n", median(on), median(on) / unit);
    return 0;
}
