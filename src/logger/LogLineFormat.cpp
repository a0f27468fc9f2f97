#include "logger/LogLineFormat.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace quillon::logger::internal {
namespace {

constexpr std::uint64_t kTicksPerMs = 10'000;
constexpr std::chrono::sys_days kFirstDay{std::chrono::January / 1 / 1601};

template <class... Values>
std::string formatted(const char* format, Values... values)
{
    std::array<char, 64> text{};
    const int length = std::snprintf(text.data(), text.size(), format, values...);
    return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

int toInt(auto count)
{
    return static_cast<int>(count);
}

std::string timeText(std::uint64_t ticks)
{
    using namespace std::chrono;
    const auto sinceFirstDay = milliseconds(static_cast<std::int64_t>(ticks / kTicksPerMs));
    const days wholeDays = floor<days>(sinceFirstDay);
    const year_month_day date(kFirstDay + wholeDays);
    const hh_mm_ss time(sinceFirstDay - wholeDays);
    return formatted("%04i.%02i.%02i %02i:%02i:%02i:%03i", int{date.year()}, toInt(unsigned{date.month()}),
                     toInt(unsigned{date.day()}), toInt(time.hours().count()), toInt(time.minutes().count()),
                     toInt(time.seconds().count()), toInt(time.subseconds().count()));
}

/// The level's name; for a level without one, which nobody writes at, `otherwise`.
std::string levelText(ELogLevel level, const std::string& otherwise)
{
    const auto* const row = std::ranges::find(logLevelNames, level, &LogLevelName::id);
    return row != logLevelNames.end() ? row->shortName : otherwise;
}

std::string numberText(std::uint32_t number)
{
    return formatted("%05llu", static_cast<unsigned long long>(number));
}

void appendField(std::string& out, const std::string& text)
{
    out.append("[").append(text).append("] ");
}

} // namespace

void formatLine(std::string& out, const LogLine<char>& line)
{
    out.clear();
    const std::string time = line.time > 0 ? timeText(line.time) : std::string();
    if (!time.empty())
        appendField(out, time);
    appendField(out, levelText(line.level, time));
    appendField(out, numberText(line.processId));
    appendField(out, numberText(line.threadId));
    appendField(out, line.category);
    out += line.message;
}

} // namespace quillon::logger::internal
