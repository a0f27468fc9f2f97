#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::i18n {
namespace internal {

/// One locale that the program knows. Texts are UTF-8.
template <class Char>
struct Locale
{
    std::uint32_t id = 0; ///< Windows locale identifier (LCID)
    std::uint32_t primaryLanguage = 0;
    std::uint32_t subLanguage = 0;
    std::basic_string<Char> displayName;  ///< language and country, for people
    std::basic_string<Char> languageName; ///< in English
    std::basic_string<Char> countryName;  ///< in English, or a remark on script or region
    std::basic_string<Char> localeName;   ///< language code, hyphen, country code
    std::basic_string<Char> languageCode;
    std::basic_string<Char> countryCode;
};

} // namespace internal

/// The id of the locale that the program falls back to, English (United States).
inline constexpr std::uint32_t kDefaultLocaleId = 1033;

/// The locale with that id.
[[nodiscard]] internal::Locale<char> getDefaultLocale();
[[nodiscard]] internal::Locale<wchar_t> getDefaultWideLocale();

/// Looks for the first locale of the catalogue with this language code and, unless `country` is empty, this
/// country code, both compared without case. False, and `out` untouched, where there is none.
bool findLocale(internal::Locale<char>& out, std::string_view language, std::string_view country);
bool findLocale(internal::Locale<wchar_t>& out, std::wstring_view language, std::wstring_view country);

/// The same by id.
bool findLocale(internal::Locale<char>& out, std::uint32_t id);
bool findLocale(internal::Locale<wchar_t>& out, std::uint32_t id);

} // namespace quillon::i18n
