#pragma once

#include "err/ResultCode.h"
#include "logger/LogLine.h"
#include "logger/LogRec.h"
#include "sync/SafeData.h"

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace quillon::logger {
namespace internal {

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

template <class Char>
class LogAppenders;

/// The appenders behind a sender. Any thread may call any operation. No appender is called, and none
/// destroyed, while the lock of the set is held: an appender may take its time, and may log.
template <>
class LogAppenders<char>
{
public:
    /// Adds `appender`, enabled, and takes it over. On failure it stays the caller's:
    /// kNullPointer, or kAlreadyExists where the set has its identifier or the object itself already.
    err::ResultCode addAppender(LogAppender<char>* appender);

    /// Silences an appender or lets it speak again. False where there is none with this identifier.
    bool setAppenderEnabled(std::uint64_t identifier, bool enabled);

    /// False also where there is no appender with this identifier.
    [[nodiscard]] bool isAppenderEnabled(std::uint64_t identifier) const;

    /// Lets go of every appender. One that is just taking a line lives until it has it.
    void removeAllAppenders();

    /// Hands `line` to every enabled appender, in ascending order of identifiers.
    void send(const LogLine<char>& line) const;

private:
    struct _TAppenderDeleter
    {
        void operator()(LogAppender<char>* appender) const noexcept { delete appender; }
    };

    struct _TAppenderOpt
    {
        std::shared_ptr<LogAppender<char>> appender;
        bool enabled = true;
    };

    using AppenderMap = std::map<unsigned long long, _TAppenderOpt>;

    [[nodiscard]] std::vector<std::shared_ptr<LogAppender<char>>> enabledAppenders() const;

    mutable sync::SafeData<sync::Locker, AppenderMap> m_appenders;
};

template <class Char>
class LogSender;

} // namespace internal

/// The sender of the process, made on first use with one reference, which is the process's own, and with the
/// threshold `Off`. Never null.
[[nodiscard]] internal::LogSender<char>* getLogSender();

namespace internal {

/// Filters log lines by level and hands them to its appenders. There is one in the process; it goes with its
/// last reference, and the next getLogSender makes another.
template <>
class LogSender<char> final : public ILogSenderBase<char>
{
public:
    LogSender(const LogSender&) = delete;
    LogSender& operator=(const LogSender&) = delete;

    int addRef() override;
    int release() override;
    [[nodiscard]] bool isEnabled(ELogLevel level) const override;
    void send(const LogLine<char>& line) override { m_appenders.send(line); }

    /// Sets the threshold: lines above it are not sent, and none at all where it is `Off`.
    void setLevel(ELogLevel level);

    [[nodiscard]] LogAppenders<char>& appenders() noexcept { return m_appenders; }

private:
    friend LogSender* logger::getLogSender();

    explicit LogSender(int* references) noexcept
        : m_references(references)
    {
    }

    LogAppenders<char> m_appenders;
    ELogLevel m_level = ELogLevel::Off;
    int* m_references; ///< not in the sender itself, as it is read when the sender is gone
};

} // namespace internal

using internal::LogSender;

} // namespace quillon::logger
