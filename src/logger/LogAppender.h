#pragma once

#include "logger/LogLevel.h"

#include <cstdint>

namespace quillon::logger::internal {

/// A sink of log lines. Any thread may call any operation.
template <class Char>
class LogAppender
{
public:
    /// `identifier` tells the appenders of one sender apart.
    explicit LogAppender(std::uint64_t identifier) noexcept
        : m_identifier(identifier)
    {
    }
    LogAppender(const LogAppender&) = delete;
    LogAppender& operator=(const LogAppender&) = delete;
    virtual ~LogAppender() = default;

    /// Takes one line; the arguments are the fields of LogLine. A null text counts as empty, and both texts
    /// are good for the length of the call only. Must not let an exception escape.
    virtual void append(std::uint64_t time, std::uint32_t processId, std::uint32_t threadId, ELogLevel level,
                        const Char* category, const Char* message, std::uint32_t extra) = 0;

    /// True where `append` only queues the line and a thread of the appender writes it.
    [[nodiscard]] virtual bool isAsynchronous() const = 0;

    [[nodiscard]] std::uint64_t identifier() const noexcept { return m_identifier; }

private:
    const std::uint64_t m_identifier;
};

} // namespace quillon::logger::internal
