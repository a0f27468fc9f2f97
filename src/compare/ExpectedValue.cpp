#include "compare/ExpectedValue.h"

#include "compare/AlgorithmName.h"
#include "compare/DigestValue.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quillon::compare {
namespace {

using text::trimAscii;

// A list of the most bytes that are read from a file may grow to this in UTF-8.
constexpr std::size_t kMostTextBytes = std::size_t{2} * 1024 * 1024;

/// What stands before the first of `marks`, and what stands behind it.
std::pair<std::string_view, std::string_view> cutAt(std::string_view text, std::string_view marks)
{
    const std::size_t end = text.find_first_of(marks);
    if (end == std::string_view::npos)
        return {text, {}};
    return {text.substr(0, end), text.substr(end + 1)};
}

bool isWholeDigest(const std::string& digits)
{
    return isDigestLength(digits.size());
}

/// The digits of one word that is a whole digest; empty for any other.
std::string digestWord(std::string_view word)
{
    std::string digits = hexDigitsOf(word);
    return isWholeDigest(digits) ? digits : std::string();
}

/// A name as the sum programs write it behind a backslash.
std::string unescaped(std::string_view name)
{
    std::string plain;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] != '\\' || i + 1 == name.size()) {
            plain += name[i];
            continue;
        }
        const char code = name[++i];
        plain += code == 'n' ? '\n' : code == 'r' ? '\r' : code;
    }
    return plain;
}

ExpectedValue valueFor(std::string_view algorithmName, std::string digits, std::string_view fileName = {})
{
    const std::string_view name = trimAscii(algorithmName);
    return {std::move(digits), std::string(name), algorithmNamed(name), std::string(fileName), {}};
}

/// "SHA256 (name) = value", and "SHA2-256(name)= value".
std::optional<ExpectedValue> readTagged(std::string_view line, bool isEscaped)
{
    constexpr std::size_t kLongestTag = 24;
    const std::size_t open = line.find('(');
    const std::size_t close = line.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open ||
        open > kLongestTag)
        return std::nullopt;
    const std::string_view behind = trimAscii(line.substr(close + 1));
    if (!behind.starts_with('='))
        return std::nullopt;
    std::string digits = digitsOf(behind.substr(1));
    if (digits.empty())
        return std::nullopt;
    const std::string_view name = line.substr(open + 1, close - open - 1);
    return valueFor(line.substr(0, open), std::move(digits), isEscaped ? unescaped(name) : name);
}

/// Whether a line that begins with `firstDigits` digits is one value in groups, rather than a value and a
/// name.
bool isInGroups(std::string_view line, std::size_t firstDigits)
{
    const std::string digits = hexDigitsOf(line);
    return !digits.empty() && (firstDigits == kLeastDigits || isWholeDigest(digits));
}

/// "value  name" and "value *name".
std::optional<ExpectedValue> readSum(std::string_view line, bool isEscaped)
{
    const std::size_t end = line.find_first_of(" \t");
    if (end == std::string_view::npos)
        return std::nullopt;
    std::string digits = digestWord(line.substr(0, end));
    std::string_view name = line.substr(end + 1);
    if (digits.empty() || name.empty())
        return std::nullopt;
    if (name.front() == ' ' || name.front() == '*')
        name.remove_prefix(1);
    else if (isInGroups(line, end))
        return std::nullopt;
    if (trimAscii(name).empty())
        return std::nullopt;
    return valueFor({}, std::move(digits), isEscaped ? unescaped(name) : name);
}

/// "name  value", as lists for CRC32 have it.
std::optional<ExpectedValue> readTrailing(std::string_view line)
{
    const std::size_t start = line.find_last_of(" \t");
    if (start == std::string_view::npos)
        return std::nullopt;
    std::string digits = digestWord(line.substr(start + 1));
    const std::string_view name = trimAscii(line.substr(0, start));
    if (digits.empty())
        return std::nullopt;
    return valueFor({}, std::move(digits),
                    name.ends_with(':') || name.ends_with('=') ? std::string_view() : name);
}

void appendLine(std::string& lines, std::string_view line)
{
    if (!lines.empty())
        lines += '\n';
    lines += line;
}

/// Reads a text line by line. Some programs write what belongs together in several lines.
class Reader
{
public:
    void take(std::string_view line)
    {
        const std::string_view trimmed = trimAscii(line);
        if (trimmed.empty() || trimmed.starts_with(';') || trimmed.starts_with('#'))
            return;
        if (std::optional<ExpectedValue> value = read(trimmed)) {
            appendLine(value->lines, trimmed);
            m_values.push_back(std::move(*value));
        }
    }

    [[nodiscard]] ExpectedValues values() && { return std::move(m_values); }

private:
    std::optional<ExpectedValue> read(std::string_view line)
    {
        const bool isEscaped = line.starts_with('\\');
        if (isEscaped)
            line.remove_prefix(1);
        std::optional<ExpectedValue> value = readTagged(line, isEscaped);
        if (!value)
            value = readNamed(line);
        if (!value)
            value = readSum(line, isEscaped);
        if (!value)
            value = readPair(line);
        if (!value)
            value = readBare(line);
        return value ? value : readTrailing(line);
    }

    /// What begins with the name of an algorithm: "SHA256: value", "sha256-value", "SHA256 value name",
    /// "SHA256 sum: value", and the heading "SHA256 hash of name:".
    std::optional<ExpectedValue> readNamed(std::string_view line)
    {
        const std::size_t length = algorithmNameLength(line);
        if (length == 0)
            return std::nullopt;
        const std::string_view name = line.substr(0, length);
        const std::size_t start = std::min(line.find_first_not_of(" \t:=-", length), line.size());
        const std::string_view rest = line.substr(start);
        const auto [word, behind] = cutAt(rest, " \t");
        std::string digits = digitsOf(rest);
        if (!digits.empty())
            return valueFor(name, std::move(digits));
        digits = digestWord(word);
        if (!digits.empty())
            return valueFor(name, std::move(digits), trimAscii(behind));
        if (std::optional<ExpectedValue> value = readTrailing(rest))
            return valueFor(name, std::move(value->digits));
        if (line.ends_with(':'))
            startHeading(name, rest.substr(0, rest.size() - 1), line);
        return std::nullopt;
    }

    void startHeading(std::string_view algorithmName, std::string_view rest, std::string_view line)
    {
        m_heading = valueFor(algorithmName, {});
        m_heading.lines = line;
        for (const std::string_view words : {"hash of file ", "hash of "}) {
            if (m_heading.fileName.empty() && rest.starts_with(words))
                m_heading.fileName = rest.substr(words.size());
        }
    }

    /// "Algorithm : SHA256", "Hash : value" and "Path : name", one below the other.
    std::optional<ExpectedValue> readPair(std::string_view line)
    {
        const auto [key, rest] = cutAt(line, ":");
        const std::string_view name = trimAscii(key);
        const std::string_view content = trimAscii(rest);
        if (text::equalsIgnoringAsciiCase(name, "algorithm"))
            startHeading(content, {}, line);
        else if (text::equalsIgnoringAsciiCase(name, "path") && !m_values.empty())
            completePath(m_values.back(), content, line);
        else if (text::equalsIgnoringAsciiCase(name, "hash"))
            return readBare(content);
        return std::nullopt;
    }

    static void completePath(ExpectedValue& value, std::string_view path, std::string_view line)
    {
        value.fileName = path;
        appendLine(value.lines, line);
    }

    std::optional<ExpectedValue> readBare(std::string_view line)
    {
        std::string digits = digitsOf(line);
        if (!isWholeDigest(digits))
            return std::nullopt;
        ExpectedValue value = std::exchange(m_heading, {});
        value.digits = std::move(digits);
        return value;
    }

    ExpectedValue m_heading; ///< what is known of the next value
    ExpectedValues m_values;
};

bool standsAlone(const ExpectedValue& value)
{
    return value.fileName.empty() && value.algorithmName.empty();
}

} // namespace

ExpectedValues readExpectedValues(std::string_view text)
{
    text = text.substr(0, kMostTextBytes);
    Reader reader;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
        reader.take(text.substr(start, end - start));
        start = end + 1;
    }
    ExpectedValues values = std::move(reader).values();
    // A value may be wrapped, or shorter than any digest.
    if (std::ranges::all_of(values, standsAlone)) {
        std::string digits = digitsOf(text);
        if (!digits.empty() && (values.empty() || isWholeDigest(digits)))
            values.assign(1, ExpectedValue{std::move(digits), {}, 0, {}, std::string(trimAscii(text))});
    }
    return values;
}

} // namespace quillon::compare
