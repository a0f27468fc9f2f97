#pragma once

#include "logger/LogAppenderUtf8File.h"
#include "logger/LogFileTest.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace quillon::tests {

/// What stands behind `number`: longer than a page now and then, so that lines lie across every buffer's end.
inline std::string tailOf(int number)
{
    return std::string(static_cast<std::size_t>(number % 97 == 0 ? 9000 : number % 31), 'x') + '.';
}

/// Appends numbered lines for as long as `goesOn` answers true for the next number.
template <class GoesOn>
void appendNumbers(logger::LogAppenderUtf8File& appender, std::uint32_t thread, GoesOn goesOn)
{
    for (int i = 0; goesOn(i); ++i) {
        const std::string message = std::to_string(i) + ' ' + tailOf(i);
        appender.append(0, 1, thread, logger::ELogLevel::Error, "test", message.c_str(), 0);
    }
}

/// How many lines of each thread there are; nothing where one is torn or out of order. A writer that opens
/// the file in the middle of another's write may leave an empty line.
inline std::map<int, int> wholeLines(const std::string& content)
{
    std::map<int, int> counts;
    std::map<int, int> latest;
    std::istringstream stream(content);
    for (std::string line; std::getline(stream, line);) {
        if (line.empty())
            continue;
        int thread = 0;
        int number = 0;
        int end = 0;
        const int read =
            std::sscanf(line.c_str(), "[ERROR] [00001] [%5d] [test] %d %n", &thread, &number, &end);
        const bool isWhole = read == 2 && line.substr(static_cast<std::size_t>(end)) == tailOf(number);
        if (!isWhole || (counts[thread]++ > 0 && latest[thread] >= number))
            return {};
        latest[thread] = number;
    }
    return counts;
}

/// Lets the threads of `start`, which is given when to go on, bring the file to several batches.
template <class Start>
void logAtFullSpeed(const std::filesystem::path& path, Start start)
{
    constexpr std::uintmax_t kSeveralBatchesBytes = 5'000'000;
    std::atomic<bool> isEnough{false};
    const std::vector<std::jthread> threads = start([&](int) { return !isEnough.load(); });
    EXPECT_TRUE(waitUntil([&] {
        std::error_code missing;
        const std::uintmax_t size = std::filesystem::file_size(path, missing);
        return !missing && size > kSeveralBatchesBytes;
    }));
    isEnough = true;
}

} // namespace quillon::tests
