#pragma once

#include "logger/LogAppenderUtf8File.h"
#include "support/TempFolder.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <thread>

namespace quillon::tests {

/// What the appender writes for a line that consists of `message`.
inline std::string lineOf(const std::string& message, std::uint32_t thread = 2)
{
    return "[ERROR] [00001] [0000" + std::to_string(thread) + "] [test] " + message + '\n';
}

/// A log file in a folder of the test's own.
class LogFileTest : public testing::Test
{
protected:
    using Appender = logger::LogAppenderUtf8File;

    LogFileTest() { restart(); }

    /// Ends the appender, which loses what it has not yet begun to write, and starts another.
    void restart()
    {
        appender.reset();
        appender = std::make_unique<Appender>(1, utf8Name(path));
        EXPECT_TRUE(err::succeeded(appender->start()));
    }

    void append(const std::string& message) const
    {
        appender->append(0, 1, 2, logger::ELogLevel::Error, "test", message.c_str(), 0);
    }

    [[nodiscard]] std::string content() const
    {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    /// Appends `message`, and waits for the file to hold it behind `before`, and nothing else.
    [[nodiscard]] bool logsAfter(const std::string& before, const std::string& message) const
    {
        append(message);
        return waitUntil([&] { return content() == before + lineOf(message); });
    }

    /// Appends `message` until the file has it.
    [[nodiscard]] bool logsAgain(const std::string& message) const
    {
        return waitUntil([&] {
            append(message);
            return content().find(lineOf(message)) != std::string::npos;
        });
    }

    /// Logs from four threads to `one` and from four to `other` until their queues could be full.
    void expectAllLinesOfEightThreads(Appender& one, Appender& other) const
    {
        std::vector<std::string> expected;
        std::vector<std::jthread> threads;
        for (const std::uint32_t thread : {0, 1, 2, 3, 4, 5, 6, 7}) {
            std::vector<std::string> messages;
            for (std::size_t i = 0; i < 1250; ++i) {
                // Often longer than a page, so that lines lie across the end of every buffer.
                messages.push_back(std::to_string(i) + std::string(i % 9 == 0 ? 9000 : i % 31, 'x') + '.');
                expected.push_back(lineOf(messages.back(), thread));
            }
            threads.emplace_back([thread, messages, &appender = thread % 2 == 0 ? one : other] {
                for (const std::string& message : messages)
                    appender.append(0, 1, thread, logger::ELogLevel::Error, "test", message.c_str(), 0);
            });
        }
        EXPECT_TRUE(waitUntil([&] { return linesByThread() == expected; }));
    }

    /// The lines of each thread in their order. A writer that opens the file in the middle of another's write
    /// may leave an empty line.
    [[nodiscard]] std::vector<std::string> linesByThread() const
    {
        std::vector<std::string> lines;
        std::istringstream stream(content());
        for (std::string line; std::getline(stream, line);) {
            if (!line.empty())
                lines.push_back(line + '\n');
        }
        std::ranges::stable_sort(lines, {}, [](const std::string& line) { return line.substr(0, 23); });
        return lines;
    }

    TempFolder folder;
    const std::filesystem::path path = folder.file("logs \xC3\xA4\xE6\x96\x87/deep/kestrum.log");
    std::unique_ptr<Appender> appender;
};

} // namespace quillon::tests
