#include "shellhelper/unix/UserActions.h"

#include "shellhelper/unix/Entries.h"
#include "text/AsciiText.h"
#include "text/Unicode.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillon::shellhelper {
namespace {

constexpr std::size_t kInRoot = 1;
constexpr std::size_t kInAction = 2;
constexpr std::size_t kInUniqueId = 3;

constexpr std::array<std::string_view, 5> kEntities{"amp", "lt", "gt", "quot", "apos"};

bool areReferencesValid(std::string_view text)
{
    for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
        const std::size_t end = text.find(';', at);
        if (end == std::string_view::npos)
            return false;
        const std::string_view name = text.substr(at + 1, end - at - 1);
        if (!name.starts_with('#') && std::ranges::find(kEntities, name) == kEntities.end())
            return false;
    }
    return true;
}

/// The place behind the bracket that ends the tag at `begin`; a bracket in an attribute's value does not.
std::size_t tagEnd(std::string_view text, std::size_t begin)
{
    char quote = 0;
    for (std::size_t i = begin + 1; i < text.size(); ++i) {
        const char c = text[i];
        if (quote != 0)
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return i + 1;
        else if (c == '<')
            break;
    }
    return std::string_view::npos;
}

} // namespace

XmlScanner::XmlScanner(std::string_view text)
    : m_text(text)
{
}

std::optional<XmlTag> XmlScanner::next()
{
    if (!skipToTag())
        return std::nullopt;
    const std::optional<XmlTag> tag = readTag();
    if (!tag || !nest(*tag)) {
        m_isDamaged = true;
        return std::nullopt;
    }
    m_position = tag->end;
    return tag;
}

/// Goes to the bracket of the next tag. False at the end of the text, and where it is damaged.
bool XmlScanner::skipToTag()
{
    while (!m_isDamaged) {
        const std::size_t bracket = std::min(m_text.find('<', m_position), m_text.size());
        m_isDamaged = !isTextValid(m_text.substr(m_position, bracket - m_position));
        m_position = bracket;
        if (bracket == m_text.size()) {
            m_isDamaged = m_isDamaged || !m_hasRoot || !m_open.empty();
            return false;
        }
        const std::string_view rest = m_text.substr(m_position);
        if (!rest.starts_with("<!") && !rest.starts_with("<?"))
            return !m_isDamaged;
        m_isDamaged = m_isDamaged || !skipMarkup();
    }
    return false;
}

/// Goes behind what is no tag.
bool XmlScanner::skipMarkup()
{
    const std::string_view rest = m_text.substr(m_position);
    if (rest.starts_with("<?"))
        return skipBehind("?>");
    if (rest.starts_with("<!--"))
        return skipBehind("-->");
    if (rest.starts_with("<![CDATA["))
        return !m_open.empty() && skipBehind("]]>");
    return !m_hasRoot && skipDocumentType();
}

bool XmlScanner::skipBehind(std::string_view mark)
{
    const std::size_t at = m_text.find(mark, m_position);
    if (at == std::string_view::npos)
        return false;
    m_position = at + mark.size();
    return true;
}

/// A document type may hold declarations in square brackets, and these have brackets of their own.
bool XmlScanner::skipDocumentType()
{
    int open = 0;
    while (m_position < m_text.size()) {
        const char c = m_text[m_position];
        if (m_text.substr(m_position).starts_with("<!--")) {
            if (!skipBehind("-->"))
                return false;
            continue;
        }
        ++m_position;
        if ((c == '"' || c == '\'') && !skipBehind({&c, 1}))
            return false;
        open += c == '<' ? 1 : 0;
        open -= c == '>' ? 1 : 0;
        if (open == 0)
            return true;
    }
    return false;
}

bool XmlScanner::isTextValid(std::string_view text) const
{
    return m_open.empty() ? text::trimAscii(text).empty() : areReferencesValid(text);
}

std::optional<XmlTag> XmlScanner::readTag() const
{
    const std::size_t end = tagEnd(m_text, m_position);
    if (end == std::string_view::npos)
        return std::nullopt;
    XmlTag tag{XmlTag::Kind::Start, m_text.substr(m_position + 1, end - m_position - 2), m_position, end};
    if (tag.name.starts_with('/')) {
        tag.kind = XmlTag::Kind::End;
        tag.name.remove_prefix(1);
    } else if (tag.name.ends_with('/')) {
        tag.kind = XmlTag::Kind::Empty;
        tag.name.remove_suffix(1);
    }
    tag.name = tag.name.substr(0, tag.name.find_first_of(" \t\r\n"));
    return tag.name.empty() ? std::nullopt : std::optional(tag);
}

/// Counts the tag in. False where it does not fit what is open.
bool XmlScanner::nest(const XmlTag& tag)
{
    if (tag.kind == XmlTag::Kind::End) {
        if (m_open.empty() || m_open.back() != tag.name)
            return false;
        m_open.pop_back();
        return true;
    }
    if (m_open.empty() && m_hasRoot)
        return false;
    m_hasRoot = true;
    if (tag.kind == XmlTag::Kind::Start)
        m_open.push_back(tag.name);
    return true;
}

std::optional<UserActions> UserActions::read(std::string text, std::string_view id)
{
    UserActions actions(std::move(text));
    if (!text::isUtf8(actions.m_text) || !actions.scan(xmlEscaped(id)))
        return std::nullopt;
    return actions;
}

UserActions::UserActions(std::string text)
    : m_text(std::move(text))
{
}

bool UserActions::scan(const std::string& idText)
{
    XmlScanner scanner(m_text);
    Range action;
    std::size_t valueBegin = 0;
    bool isOwn = false;
    while (const std::optional<XmlTag> tag = scanner.next()) {
        const bool isStart = tag->kind == XmlTag::Kind::Start;
        const bool isEnd = tag->kind == XmlTag::Kind::End;
        if (isStart && scanner.depth() == kInAction) {
            action.begin = tag->begin;
            isOwn = false;
        } else if (isStart && scanner.depth() == kInUniqueId && tag->name == "unique-id") {
            valueBegin = tag->end;
        } else if (isEnd && scanner.depth() == kInAction && tag->name == "unique-id") {
            isOwn = isOwn ||
                    text::trimAscii(std::string_view(m_text).substr(valueBegin, tag->begin - valueBegin)) ==
                        idText;
        } else if (isEnd && scanner.depth() == kInRoot && tag->name == "action" && isOwn) {
            m_own.push_back({action.begin, tag->end});
        } else if (!isEnd && m_rootTag.end == 0) {
            if (tag->name != "actions")
                return false;
            m_rootTag = {tag->begin, tag->end};
            m_rootEndTag = {tag->end, tag->end};
        } else if (isEnd && scanner.depth() == 0) {
            m_rootEndTag = {tag->begin, tag->end};
        }
    }
    return !scanner.isDamaged();
}

std::string UserActions::own() const
{
    return hasOwn() ? m_text.substr(m_own.front().begin, m_own.front().end - m_own.front().begin)
                    : std::string();
}

std::string UserActions::withOwn(std::string_view element) const
{
    std::string text = m_text;
    if (hasOwn())
        return text.replace(m_own.front().begin, m_own.front().end - m_own.front().begin, element);
    if (m_rootEndTag.begin != m_rootEndTag.end)
        return text.insert(m_rootEndTag.begin, std::string(element) + '\n');
    // A root of one tag becomes one of two. No line feed, by which `withoutOwn` knows it again.
    text.insert(m_rootTag.end, std::string(element) + "</actions>");
    return text.erase(m_rootTag.end - 2, 1);
}

std::string UserActions::withoutOwn() const
{
    std::string text = m_text;
    if (m_own.size() == 1 && m_own.front().begin == m_rootTag.end &&
        m_own.front().end == m_rootEndTag.begin) {
        text.erase(m_rootTag.end, m_rootEndTag.end - m_rootTag.end);
        return text.insert(m_rootTag.end - 1, "/");
    }
    // From the last to the first, so that the places of the others stay true.
    std::for_each(m_own.rbegin(), m_own.rend(), [&text](const Range& range) {
        const std::size_t lineFeed = range.end < text.size() && text[range.end] == '\n' ? 1 : 0;
        text.erase(range.begin, range.end + lineFeed - range.begin);
    });
    return text;
}

} // namespace quillon::shellhelper
