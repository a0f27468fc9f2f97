#include "app/StartLanguage.h"

#include "i18n/StrBundleTrMgr.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"
#include "vars/Product.h"

namespace i18n = quillon::i18n;

i18n::internal::Locale<char> storedLocale()
{
    i18n::internal::Locale<char> locale = i18n::getDefaultLocale();
    i18n::findLocale(locale, thisapp::settings::LocaleId.read(CAppSettings()));
    return locale;
}

void loadStartLanguage()
{
    auto& bundle = i18n::getStrBundleMgr();
    // Whatever fails, the program speaks the English of its source texts, so the results tell nothing.
    static_cast<void>(bundle.setProductName(quillon::vars::kProductName));
    const i18n::internal::Locale<char> locale = storedLocale();
    static_cast<void>(bundle.loadTranslation(locale.languageCode, locale.countryCode, true));
}
