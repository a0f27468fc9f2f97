#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace quillon::logger {

/// How much a log line matters; a larger number is more verbose. `Off` is a threshold only, and lines are
/// written at `Error`, `Information`, `Debug` and `Trace`.
enum class ELogLevel : std::int32_t
{
    Off = 0,
    Fatal = 1,
    Error = 2,
    Warning = 3,
    Information = 4,
    Debug = 5,
    Trace = 6,
};

struct LogLevelName
{
    ELogLevel id;
    const char* shortName; ///< five letters, so that log lines stay aligned
    const char* longName;
};

inline constexpr std::array<LogLevelName, 7> logLevelNames{{
    {ELogLevel::Off, "OFFFF", "OFF"},
    {ELogLevel::Fatal, "FATAL", "FATAL"},
    {ELogLevel::Error, "ERROR", "ERROR"},
    {ELogLevel::Warning, "WARNG", "WARNING"},
    {ELogLevel::Information, "INFRM", "INFORMATION"},
    {ELogLevel::Debug, "DEBUG", "DEBUG"},
    {ELogLevel::Trace, "TRACE", "TRACE"},
}};

/// The threshold for a number that comes from outside; `Off` for one that is not in the table.
[[nodiscard]] constexpr ELogLevel logLevelFromNumber(std::int64_t number) noexcept
{
    const bool known = std::ranges::any_of(logLevelNames, [number](const LogLevelName& name) {
        return static_cast<std::int64_t>(name.id) == number;
    });
    return known ? static_cast<ELogLevel>(number) : ELogLevel::Off;
}

} // namespace quillon::logger

namespace quillon::logger::internal {

/// One entry of the log. Texts are UTF-8.
template <class Char>
struct LogLine
{
    std::uint64_t time = 0; ///< local time in 100 ns ticks since 1601; 0 until the record is flushed
    std::uint32_t processId = 0;
    std::uint32_t threadId = 0;
    ELogLevel level = ELogLevel::Off;
    std::basic_string<Char> category; ///< names the part of the program
    std::basic_string<Char> message;
    std::uint32_t extra = 0; ///< passed on unchanged
};

} // namespace quillon::logger::internal
