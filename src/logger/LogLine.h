#pragma once

#include "logger/LogLevel.h"

#include <cstdint>
#include <string>

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
