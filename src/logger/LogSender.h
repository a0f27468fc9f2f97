#pragma once

#include "logger/LogAppenders.h"
#include "logger/LogLine.h"
#include "logger/LogRec.h"

#include <string>

namespace quillon::logger {
namespace internal {

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
