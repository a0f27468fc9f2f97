#include "file/Words.h"

#include "text/AsciiText.h"

#include <algorithm>
#include <array>
#include <cwctype>

namespace quillon::file {
namespace {

using Words = std::array<std::wstring_view, 5>;

constexpr Words kPositiveWords{L"1", L"ok", L"yes", L"ofcouse", L"true"};
constexpr Words kNegativeWords{L"0", L"not", L"no", L"never", L"false"};

bool isWideSpace(wchar_t c) noexcept
{
    return std::iswspace(static_cast<std::wint_t>(c)) != 0;
}

wchar_t toLower(wchar_t c) noexcept
{
    return c < 0x80 ? static_cast<wchar_t>(text::toAsciiLower(static_cast<char>(c))) : c;
}

template <class Text, class IsSpace>
void trimBothEnds(Text& text, IsSpace isSpace)
{
    text.erase(std::find_if_not(text.rbegin(), text.rend(), isSpace).base(), text.end());
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), isSpace));
}

} // namespace

void trim(std::string& text)
{
    trimBothEnds(text, text::isAsciiSpace);
}

void trim(std::wstring& text)
{
    trimBothEnds(text, isWideSpace);
}

bool equalsIgnoringCase(std::wstring_view a, std::wstring_view b) noexcept
{
    return std::ranges::equal(a, b, {}, toLower, toLower);
}

bool isBoolWord(std::wstring_view word, bool positive) noexcept
{
    return std::ranges::any_of(positive ? kPositiveWords : kNegativeWords,
                               [word](std::wstring_view each) { return equalsIgnoringCase(word, each); });
}

} // namespace quillon::file
