#include "file/PropertiesParser.h"

#include "file/Words.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quillon::file::internal {
namespace {

constexpr char kBackslash = '\\';

/// Where the line has the backslash that makes the next line its continuation.
std::size_t findContinuation(std::string_view line)
{
    const auto last = std::find_if_not(line.rbegin(), line.rend(), text::isAsciiSpace);
    const auto length = static_cast<std::size_t>(line.rend() - last);
    const bool isMark = length >= 2 && line[length - 1] == kBackslash && line[length - 2] != kBackslash;
    return isMark ? length - 1 : std::string_view::npos;
}

/// Removes the indentation and a carriage return; leaves nothing of a comment.
void stripLine(std::string& line)
{
    line.erase(line.begin(), std::ranges::find_if_not(line, text::isAsciiSpace));
    if (line.starts_with('#') || line.starts_with('!'))
        line.clear();
    if (line.ends_with('\r'))
        line.pop_back();
}

} // namespace

std::optional<std::string> LogicalLines::add(std::string line)
{
    stripLine(line);
    if (line.empty())
        return std::nullopt;
    const std::size_t mark = findContinuation(line);
    const bool isContinued = mark != std::string::npos;
    if (isContinued)
        line.resize(mark);
    if (m_pending.empty())
        m_pending = std::move(line);
    else
        m_pending += line;
    if (isContinued)
        return std::nullopt;
    return std::exchange(m_pending, {});
}

bool PairWalk::add(std::string_view line)
{
    for (const char c : line) {
        if (c == kBackslash)
            takeBackslash();
        else if (m_isInValue)
            takeForValue(c);
        else
            takeForKey(c);
        m_before = c;
    }
    trim(key);
    return !key.empty();
}

void PairWalk::clear()
{
    *this = {};
}

void PairWalk::takeBackslash()
{
    // A doubled one in the key counts for the value too: files in use rely on what this has always done.
    if (m_before == kBackslash)
        value += kBackslash;
}

void PairWalk::takeForKey(char c)
{
    if ((c == '=' || c == ':') && m_before != kBackslash)
        m_isInValue = true;
    else if (!key.empty() || !text::isAsciiSpace(c))
        key += c;
}

void PairWalk::takeForValue(char c)
{
    constexpr std::string_view kEscapes = "nrtuU";
    constexpr std::string_view kMeanings = "\n\r\t";
    if (m_before == kBackslash) {
        const std::size_t escape = kEscapes.find(c);
        if (escape != std::string_view::npos) {
            value += kMeanings.substr(std::min(escape, kMeanings.size()), 1);
            return;
        }
    }
    if (!value.empty() || !text::isAsciiSpace(c))
        value += c;
}

} // namespace quillon::file::internal
