#pragma once

#include "logger/LogAppenderUtf8File.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>

namespace quillon::tests {

/// Whether `condition` comes true within the longest time that a test waits.
template <class Condition>
[[nodiscard]] bool waitUntil(Condition condition)
{
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// What the appender writes for a line that consists of `message`.
inline std::string lineOf(const std::string& message)
{
    return "[ERROR] [00001] [00002] [test] " + message + '\n';
}

/// A log file in a folder of the test's own.
class LogFileTest : public testing::Test
{
protected:
    LogFileTest() { restart(); }

    /// Ends the appender, which loses what it has not yet begun to write, and starts another.
    void restart()
    {
        appender.reset();
        appender = std::make_unique<logger::LogAppenderUtf8File>(1, utf8Name(path));
        EXPECT_TRUE(err::succeeded(appender->start()));
    }

    void append(const std::string& message) const
    {
        appender->append(0, 1, 2, logger::ELogLevel::Error, "test", message.c_str(), 0);
    }

    [[nodiscard]] std::string content() const
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    [[nodiscard]] bool waitForContent(const std::string& expected) const
    {
        return waitUntil([&] { return content() == expected; });
    }

    /// Appends `message` until the file has it.
    [[nodiscard]] bool logsAgain(const std::string& message) const
    {
        return waitUntil([&] {
            append(message);
            return content().find(lineOf(message)) != std::string::npos;
        });
    }

    TempFolder folder;
    const std::filesystem::path path = folder.file("logs \xC3\xA4\xE6\x96\x87/deep/kestrum.log");
    std::unique_ptr<logger::LogAppenderUtf8File> appender;
};

} // namespace quillon::tests
