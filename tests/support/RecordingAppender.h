#pragma once

#include "logger/LogLine.h"
#include "logger/LogSender.h"

#include <vector>

namespace quillon::tests {

using Lines = std::vector<logger::internal::LogLine<char>>;

/// Keeps every line in a list of the test's.
class RecordingAppender final : public logger::internal::LogAppender<char>
{
public:
    RecordingAppender(std::uint64_t identifier, Lines& lines)
        : LogAppender(identifier)
        , m_lines(lines)
    {
    }

    void append(std::uint64_t time, std::uint32_t processId, std::uint32_t threadId, logger::ELogLevel level,
                const char* category, const char* message, std::uint32_t extra) override
    {
        m_lines.push_back({time, processId, threadId, level, category, message, extra});
    }

    [[nodiscard]] bool isAsynchronous() const override { return false; }

private:
    Lines& m_lines;
};

} // namespace quillon::tests
