#include "i18n/Locale.h"

#include "i18n/LocaleTable.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <string_view>

namespace quillon::i18n {
namespace {

using internal::Locale;
using internal::LocaleRow;

constexpr std::uint32_t kAfrikaansId = 1078;

std::string_view languageCode(const LocaleRow& row)
{
    const std::string_view name = row.localeName;
    return name.substr(0, name.find('-'));
}

std::string_view countryCode(const LocaleRow& row)
{
    const std::string_view name = row.localeName;
    return name.substr(name.find('-') + 1);
}

std::string displayName(const LocaleRow& row)
{
    // The one display name that does not follow from the others.
    if (row.id == kAfrikaansId)
        return "Afrikaans (South Africa)";
    return std::string(row.languageName) + " (" + row.countryName + ')';
}

template <class Char>
Locale<Char> makeLocale(const LocaleRow& row)
{
    // The rows are ASCII, so that a byte is a character in either form.
    const auto text = [](std::string_view ascii) {
        return std::basic_string<Char>(ascii.begin(), ascii.end());
    };
    return {row.id,
            row.primaryLanguage,
            row.subLanguage,
            text(displayName(row)),
            text(row.languageName),
            text(row.countryName),
            text(row.localeName),
            text(languageCode(row)),
            text(countryCode(row))};
}

constexpr char toLower(char c)
{
    return text::toAsciiLower(c);
}

constexpr wchar_t toLower(wchar_t c)
{
    return c < 0x80 ? static_cast<wchar_t>(text::toAsciiLower(static_cast<char>(c))) : c;
}

/// True where `code` is `text` but for the case of its letters.
template <class Char>
bool isCode(std::string_view code, std::basic_string_view<Char> text)
{
    return std::ranges::equal(code, text, [](char a, Char b) { return Char(toLower(a)) == toLower(b); });
}

template <class Char, class IsWanted>
bool findRow(Locale<Char>& out, IsWanted isWanted)
{
    const auto rows = internal::localeTable();
    const auto row = std::ranges::find_if(rows, isWanted);
    if (row == rows.end())
        return false;
    out = makeLocale<Char>(*row);
    return true;
}

template <class Char>
bool findByCodes(Locale<Char>& out, std::basic_string_view<Char> language,
                 std::basic_string_view<Char> country)
{
    return findRow(out, [language, country](const LocaleRow& row) {
        return isCode(languageCode(row), language) && (country.empty() || isCode(countryCode(row), country));
    });
}

template <class Char>
bool findById(Locale<Char>& out, std::uint32_t id)
{
    return findRow(out, [id](const LocaleRow& row) { return row.id == id; });
}

} // namespace

Locale<char> getDefaultLocale()
{
    Locale<char> locale;
    findLocale(locale, kDefaultLocaleId);
    return locale;
}

Locale<wchar_t> getDefaultWideLocale()
{
    Locale<wchar_t> locale;
    findLocale(locale, kDefaultLocaleId);
    return locale;
}

bool findLocale(Locale<char>& out, std::string_view language, std::string_view country)
{
    return findByCodes(out, language, country);
}

bool findLocale(Locale<wchar_t>& out, std::wstring_view language, std::wstring_view country)
{
    return findByCodes(out, language, country);
}

bool findLocale(Locale<char>& out, std::uint32_t id)
{
    return findById(out, id);
}

bool findLocale(Locale<wchar_t>& out, std::uint32_t id)
{
    return findById(out, id);
}

} // namespace quillon::i18n
