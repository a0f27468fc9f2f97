#include "shellhelper/unix/UserActions.h"

#include "shellhelper/unix/Quoting.h"
#include "shellhelper/unix/XmlScanner.h"
#include "text/AsciiText.h"
#include "text/Unicode.h"

#include <algorithm>
#include <utility>

namespace quillon::shellhelper {
namespace {

constexpr std::size_t kInRoot = 1;
constexpr std::size_t kInAction = 2;
constexpr std::size_t kInUniqueId = 3;

bool isUtf8(std::string_view text)
{
    return text::utf8FromWide(text::wideFromUtf8(text)) == text;
}

} // namespace

std::optional<UserActions> UserActions::read(std::string text, std::string_view id)
{
    UserActions actions(std::move(text));
    if (!isUtf8(actions.m_text) || !actions.scan(xmlEscaped(id)))
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
