#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::shellhelper {

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
