#include "i18n/TrResReader.h"

#include "file/Words.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace quillon::i18n::internal {
namespace {

constexpr std::int64_t kMostBytes = 32768;

// Nobody writes a text of this size. A file that has lost an "@end" might, or one that is none.
constexpr std::size_t kMostTextBytes = std::size_t{64} * 1024;

} // namespace

// Small files get small queues: a file may be one of a long chain of includes, which are all open at a time.
LookAhead::LookAhead(io::IStreamUtf8File& stream)
    : m_stream(stream)
    , m_bytes(static_cast<std::size_t>(std::min(stream.size(), kMostBytes)) + kLeastBytes)
{
}

void LookAhead::fill()
{
    const auto rest = m_bytes.begin();
    std::copy(rest + static_cast<std::ptrdiff_t>(m_begin), rest + static_cast<std::ptrdiff_t>(m_end), rest);
    m_end -= m_begin;
    m_begin = 0;
    while (m_end < kLeastBytes && !m_isDrained) {
        const std::size_t count = m_stream.readLines(std::span(m_bytes).subspan(m_end));
        m_end += count;
        m_isDrained = count == 0;
    }
}

namespace {

constexpr std::string_view kInclude = "@include";
constexpr std::string_view kBegin = "@begin";
constexpr std::string_view kEnd = "@end";
constexpr std::string_view kContext = "@context";
constexpr std::string_view kSource = "@src";
constexpr std::string_view kTranslation = "@tr";
constexpr std::string_view kKeywords[] = {kInclude, kBegin, kEnd, kContext, kSource, kTranslation};

static_assert(std::ranges::all_of(kKeywords,
                                  [](auto word) { return word.size() <= LookAhead::kLeastBytes; }));

// One bit for each field of an entry.
constexpr unsigned kContextField = 1;
constexpr unsigned kSourceField = 2;
constexpr unsigned kTranslationField = 4;
constexpr unsigned kAllFields = kContextField | kSourceField | kTranslationField;

auto isByte(char wanted)
{
    return [wanted](char c) { return c == wanted; };
}

/// Keeps one byte more than a text may have, which then tells of the rest.
auto appendTo(std::string& text)
{
    return [&text](std::string_view bytes) { text += bytes.substr(0, kMostTextBytes + 1 - text.size()); };
}

bool isTooLong(const std::string& text)
{
    return text.size() > kMostTextBytes;
}

/// What a byte stands for behind a backslash.
char unescaped(char c)
{
    switch (c) {
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
    case 'u': // Translation files in use count on it.
    case 'U':
        return '\t';
    default:
        return c;
    }
}

/// Drops the white space at both ends, and then a pair of quotes, within which it was meant to stay.
void trimToValue(std::string& text)
{
    file::trim(text);
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
        text.pop_back();
        text.erase(0, 1);
    }
}

} // namespace

TrResReader::TrResReader(io::IStreamUtf8File& stream, trres::internal::ITrResReadCallback<char>& callback)
    : m_ahead(stream)
    , m_callback(callback)
{
}

void TrResReader::read()
{
    readIncludes();
    do {
        while (takeEntry())
            m_callback.onItem(m_context, m_source, m_translation);
    } while (passToBegin());
}

void TrResReader::readIncludes()
{
    skipWhiteAndComments();
    while (takeWord(kInclude) && takeQuotedPath()) {
        m_callback.onInclude(m_path);
        skipWhiteAndComments();
    }
}

bool TrResReader::takeQuotedPath()
{
    m_path.clear();
    skipWhite();
    if (!takeWord("\""))
        return false;
    while (m_ahead.passTo(isByte('"'), appendTo(m_path)) && !isTooLong(m_path)) {
        m_ahead.skip(1);
        if (!m_path.ends_with('\\'))
            return true;
        m_path += '"';
    }
    return false;
}

bool TrResReader::takeEntry()
{
    skipWhiteAndComments();
    if (!takeWord(kBegin))
        return false;
    skipWhite();
    m_missingFields = kAllFields;
    while (m_missingFields != 0)
        if (!takeField())
            return false;
    return takeWord(kEnd);
}

bool TrResReader::takeField()
{
    const auto begins = [this](std::string_view word, unsigned field) {
        if ((m_missingFields & field) == 0 || !takeWord(word))
            return false;
        m_missingFields &= ~field;
        return true;
    };
    if (begins(kContext, kContextField))
        return takeContext();
    if (begins(kSource, kSourceField))
        return takeText(m_source);
    return begins(kTranslation, kTranslationField) && takeText(m_translation);
}

bool TrResReader::takeContext()
{
    m_context.clear();
    skipWhite();
    while (m_ahead.passTo(isByte('@'), appendTo(m_context)) && !isTooLong(m_context)) {
        if (!m_context.ends_with('\\') && isAtKeyword()) {
            file::trim(m_context);
            return true;
        }
        m_ahead.skip(1);
        m_context += '@';
    }
    return false;
}

/// True where a keyword follows, without which the entry cannot go on.
bool TrResReader::takeText(std::string& text)
{
    text.clear();
    skipWhite();
    while (m_ahead.passTo([](char c) { return c == '@' || c == '\\'; }, appendTo(text)) && !isTooLong(text)) {
        if (m_ahead.view().front() == '\\') {
            takeEscapes(text);
        } else if (isAtKeyword()) {
            trimToValue(text);
            return true;
        } else {
            m_ahead.skip(1);
            text += '@';
        }
    }
    return false;
}

/// Of several backslashes in a row each but the first stands for itself, and the last also changes the byte
/// behind it.
void TrResReader::takeEscapes(std::string& text)
{
    m_ahead.skip(1);
    if (m_ahead.passTo([](char c) { return c != '\\'; }, appendTo(text)) && !isTooLong(text)) {
        text += unescaped(m_ahead.view().front());
        m_ahead.skip(1);
    }
}

bool TrResReader::passToBegin()
{
    while (m_ahead.passTo(isByte('@'))) {
        if (m_ahead.view().starts_with(kBegin))
            return true;
        m_ahead.skip(1);
    }
    return false;
}

void TrResReader::skipWhite()
{
    m_ahead.passTo([](char c) { return !text::isAsciiSpace(c); });
}

void TrResReader::skipWhiteAndComments()
{
    skipWhite();
    while (takeWord("#")) {
        m_ahead.passTo([](char c) { return c == '\r' || c == '\n'; });
        skipWhite();
    }
}

bool TrResReader::takeWord(std::string_view word)
{
    if (!m_ahead.view().starts_with(word))
        return false;
    m_ahead.skip(word.size());
    return true;
}

bool TrResReader::isAtKeyword()
{
    const std::string_view ahead = m_ahead.view();
    return std::ranges::any_of(kKeywords, [ahead](std::string_view word) { return ahead.starts_with(word); });
}

} // namespace quillon::i18n::internal
