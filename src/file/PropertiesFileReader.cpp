#include "file/PropertiesFileReader.h"

#include "err/ResultCode.h"
#include "file/Words.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
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

namespace {

/// The road of each pair from the file to the variables.
struct PairSink
{
    vars::internal::IVariablesSetter<char>& setter;
    IKeyFilter<char>* filter;
    ITextExpander<char>* expander;
    const std::string& prefix;
    err::ResultCode firstError{};

    void take(PairWalk& pair)
    {
        if (expander != nullptr) {
            expander->expand(pair.key);
            expander->expand(pair.value);
            trim(pair.key);
            if (pair.key.empty())
                return;
        }
        pair.key.insert(0, prefix);
        if (filter != nullptr && !filter->accepts(pair.key))
            return;
        const err::ResultCode result = setter.setValue(pair.key, pair.value, {});
        if (err::succeeded(firstError))
            firstError = result;
    }
};

} // namespace

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, Filter* filter,
                                                         Expander* expander, bool skipFilter,
                                                         const Text& prefix, int encoding)
{
    if (path.empty() || setter == nullptr)
        return err::programError(err::kInvalidArgument);
    m_isStopped.set(false);
    Reader reader;
    if (const err::ResultCode opened = reader.open(path, encoding); !err::succeeded(opened))
        return opened;
    PairSink sink{*setter, skipFilter ? nullptr : filter, expander, prefix};
    LogicalLines lines;
    PairWalk pair;
    Text line;
    const auto take = [&](const Text& logicalLine) {
        if (!pair.add(logicalLine))
            return;
        sink.take(pair);
        pair.clear();
    };
    while (!m_isStopped.get() && reader.readLine(line)) {
        if (const std::optional<Text> logicalLine = lines.add(std::move(line)))
            take(*logicalLine);
    }
    if (!m_isStopped.get())
        take(lines.takeRest());
    return sink.firstError;
}

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, Filter* filter,
                                                         Expander* expander, bool skipFilter, int encoding)
{
    return read(path, setter, filter, expander, skipFilter, {}, encoding);
}

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, Filter* filter,
                                                         Expander* expander, int encoding)
{
    return read(path, setter, filter, expander, true, {}, encoding);
}

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, bool skipFilter,
                                                         const Text& prefix, int encoding)
{
    return read(path, setter, nullptr, nullptr, skipFilter, prefix, encoding);
}

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, int encoding)
{
    return read(path, setter, nullptr, nullptr, true, {}, encoding);
}

template <class Char, class Reader>
void PropertiesFileReader<Char, Reader>::stop()
{
    m_isStopped.set(true);
}

template class PropertiesFileReader<char, TextFileReader<char>>;

} // namespace quillon::file::internal
