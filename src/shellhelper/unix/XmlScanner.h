#pragma once

#include <optional>
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

} // namespace quillon::shellhelper
