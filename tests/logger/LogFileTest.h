#pragma once

#include "logger/LogAppenderUtf8File.h"
#include "support/TempFolder.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <sstream>

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

    TempFolder folder;
    const std::filesystem::path path = folder.file("logs \xC3\xA4\xE6\x96\x87/deep/kestrum.log");
    std::unique_ptr<Appender> appender;
};

} // namespace quillon::tests
