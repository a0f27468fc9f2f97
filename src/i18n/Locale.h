#pragma once

#include "callback/CallbackHolder.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>

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

namespace quillon::i18n::internal {

/// What a change of locale carries: language code, country code, and a value that its sender chooses.
template <class Char>
using LocaleTuple = std::tuple<std::basic_string<Char>, std::basic_string<Char>, long>;

/// Hears of a change of locale.
template <class Char>
class ILocaleCallback : public callback::ICallback<LocaleTuple<Char>>
{
public:
    using Text = std::basic_string<Char>;

    void onCallback(const LocaleTuple<Char>& tuple) override
    {
        const auto& [language, country, id] = tuple;
        onLocaleChanged(language, country, id);
    }

    /// `country` may be empty where the language alone is known.
    virtual void onLocaleChanged(const Text& language, const Text& country, long id) = 0;
};

/// Tells the current locale. Any thread may ask.
template <class Char>
class ILocaleProvider
{
public:
    virtual ~ILocaleProvider() = default;

    virtual void getLocale(Locale<Char>& out) const = 0;
};

} // namespace quillon::i18n::internal
