// How the language changes.

#include "app/CBaseApp.h"
#include "i18n/StrBundleTrMgr.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"
#include "text/AsciiText.h"
#include "ui/TextDirection.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace quillon {
namespace {

using Locale = i18n::internal::Locale<char>;
using text::equalsIgnoringAsciiCase;

struct UsualCountry
{
    std::string_view language;
    std::string_view country;
};

/// For other languages, the first country of the locale catalogue is the usual one.
constexpr UsualCountry kUsualCountries[] = {
    {"en", "US"}, {"el", "GR"}, {"de", "DE"}, {"fr", "FR"}, {"es", "ES"}, {"it", "IT"},   {"pt", "PT"},
    {"ru", "RU"}, {"ar", "SA"}, {"hr", "HR"}, {"nl", "NL"}, {"sv", "SE"}, {"zh", "Hans"},
};

/// Empty for a language that no locale has.
std::string usualCountryOf(const std::string& language)
{
    const auto* const row = std::ranges::find_if(kUsualCountries, [&](const UsualCountry& usual) {
        return equalsIgnoringAsciiCase(usual.language, language);
    });
    if (row != std::end(kUsualCountries))
        return std::string(row->country);
    Locale first;
    return i18n::findLocale(first, language, {}) ? first.countryCode : std::string();
}

} // namespace

void CBaseApp::onLocaleChanged(const std::string& language, const std::string& country, long value)
{
    if (m_closing.get())
        return;
    const std::string fullCountry = country.empty() ? usualCountryOf(language) : country;
    const Locale current = m_locale.get();
    if (equalsIgnoringAsciiCase(current.languageCode, language) &&
        equalsIgnoringAsciiCase(current.countryCode, fullCountry))
        return;
    Locale next;
    if (!i18n::findLocale(next, language, fullCountry) || !loadLocale(next))
        return;
    AppSettings store(static_cast<int>(getProductId()));
    thisapp::settings::LocaleId.write(store, next.id);
    handleCallback(this, {language, fullCountry, value});
}

bool CBaseApp::loadLocale(const Locale& locale)
{
    if (!loadTexts(locale.languageCode, locale.countryCode))
        return false;
    m_locale.set(locale);
    followLoadedTexts();
    return true;
}

/// A language whose texts are not there is shown in English.
void CBaseApp::followLoadedTexts()
{
    const auto& texts = i18n::getStrBundleMgr();
    const Locale shown = texts.getItemCount() > 0 ? m_locale.get() : i18n::getDefaultLocale();
    followDirectionOf(shown.languageCode);
}

/// Loads the texts of a language, or leaves those of the former one.
bool CBaseApp::loadTexts(const std::string& language, const std::string& country)
{
    auto& texts = i18n::getStrBundleMgr();
    auto former = texts.getState();
    const bool isLoaded = equalsIgnoringAsciiCase(former.language, language) &&
                          equalsIgnoringAsciiCase(former.country, country);
    const err::ResultCode loaded = texts.loadTranslation(language, country, true);
    if (isLoaded || err::succeeded(loaded))
        return true;
    texts.setState(std::move(former));
    return false;
}

} // namespace quillon
