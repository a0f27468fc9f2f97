#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::shellhelper {

/// A tag and its place in the text, both brackets included: [begin, end).
struct XmlTag
{
    enum class Kind
    {
        Start,
        End,
        Empty
    };

    Kind kind = Kind::Start;
    std::string_view name;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Walks through the tags of an XML text in their order and holds them against each other. It exists because
/// a tree would lose the places, and with them every byte that is not ours. It refuses what a parser refuses
/// in practice (a cut file, crossed tags, text outside the root, a lone ampersand); names and attributes are
/// not looked at. The text has to outlive the scanner.
class XmlScanner
{
public:
    explicit XmlScanner(std::string_view text);

    /// The next tag, or nothing at the end of the text and where it is damaged.
    [[nodiscard]] std::optional<XmlTag> next();

    /// How many elements are open behind the last tag.
    [[nodiscard]] std::size_t depth() const noexcept { return m_open.size(); }

    [[nodiscard]] bool isDamaged() const noexcept { return m_isDamaged; }

private:
    bool skipToTag();
    bool skipMarkup();
    bool skipBehind(std::string_view mark);
    bool skipDocumentType();
    [[nodiscard]] bool isTextValid(std::string_view text) const;
    [[nodiscard]] std::optional<XmlTag> readTag() const;
    bool nest(const XmlTag& tag);

    std::string_view m_text;
    std::size_t m_position = 0;
    std::vector<std::string_view> m_open;
    bool m_hasRoot = false;
    bool m_isDamaged = false;
};

/// The text of Thunar's file of user actions, in which every program and the user write, and the one action
/// in it that is ours. Nothing else in the text is ever touched.
class UserActions
{
public:
    /// A file with no action in it.
    static constexpr std::string_view kNoActions =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<actions>\n</actions>\n";

    /// Looks for the action with the unique id `id`. Empty where the text is damaged, so that Thunar would
    /// not take it either.
    [[nodiscard]] static std::optional<UserActions> read(std::string text, std::string_view id);

    [[nodiscard]] const std::string& text() const noexcept { return m_text; }
    [[nodiscard]] bool hasOwn() const noexcept { return !m_own.empty(); }

    /// Our action as it stands there, empty where there is none.
    [[nodiscard]] std::string own() const;

    /// The text with `element` as our action, in its old place or behind all others.
    [[nodiscard]] std::string withOwn(std::string_view element) const;

    /// The text as it was before `withOwn`, byte for byte; where somebody rewrote it, without our action.
    [[nodiscard]] std::string withoutOwn() const;

private:
    struct Range
    {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    explicit UserActions(std::string text);
    bool scan(const std::string& idText);

    std::string m_text;
    Range m_rootTag;
    Range m_rootEndTag; ///< empty, at the end of the root's only tag, where it has one tag only
    std::vector<Range> m_own;
};

} // namespace quillon::shellhelper
