#include "i18n/Locale.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <tuple>

namespace quillon::i18n {
namespace {

using internal::Locale;

TEST(Locale, KeepsTheNamesThatLookLikeSlips)
{
    const Locale<char> expected[] = {
        {1078, 54, 1, "Afrikaans (South Africa)", "Afrikaan", "South Africa", "af-ZA", "af", "ZA"},
        {1069, 45, 1, "Basque (Basque)", "Basque", "Basque", "eu-ES", "eu", "ES"},
        {1107, 83, 1, "Khmer (Cambodia)", "Khmer", "Cambodia", "kh-KH", "kh", "KH"},
        {2092, 44, 2, "Azeri (Azerbaijan, Cyrillic)", "Azeri", "Azerbaijan, Cyrillic", "az-AZ", "az", "AZ"},
        {2068, 20, 2, "Norwegian (Nynorsk, Norway)", "Norwegian", "Nynorsk, Norway", "no-NO", "no", "NO"},
        {9225, 9, 9, "English (Caribbean)", "English", "Caribbean", "en-029", "en", "029"},
        {9275, 59, 9, "Sami (Inari, Finland)", "Sami", "Inari, Finland", "smn-FI", "smn", "FI"},
        {31748, 4, 1, "Chinese (Traditional)", "Chinese", "Traditional", "zh-Hant", "zh", "Hant"},
    };
    const auto fields = [](const Locale<char>& l) {
        return std::tuple(l.id, l.primaryLanguage, l.subLanguage, l.displayName, l.languageName,
                          l.countryName, l.localeName, l.languageCode, l.countryCode);
    };
    for (const Locale<char>& each : expected) {
        Locale<char> found;
        ASSERT_TRUE(findLocale(found, each.id)) << each.id;
        EXPECT_EQ(fields(found), fields(each));
    }
}

TEST(Locale, IsFoundByItsCodesInAnyCaseTheFirstRowWins)
{
    const struct
    {
        std::string language;
        std::string country;
        std::uint32_t id; ///< 7 where there is none
    } cases[] = {{"EN", "us", 1033}, {"en", "", 3081}, {"az", "AZ", 2092},
                 {"zh", "hans", 4},  {"zh", "CN", 7},  {"", "", 7},
                 {"e", "US", 7},     {"en", "USA", 7}, {"fil", "PH", 1124}};
    for (const auto& each : cases) {
        Locale<char> narrow{7, 0, 0, {}, {}, {}, {}, {}, {}};
        Locale<wchar_t> wide{7, 0, 0, {}, {}, {}, {}, {}, {}};
        EXPECT_EQ(findLocale(narrow, each.language, each.country), each.id != 7);
        EXPECT_EQ(findLocale(wide, std::wstring(each.language.begin(), each.language.end()),
                             std::wstring(each.country.begin(), each.country.end())),
                  each.id != 7);
        EXPECT_EQ(narrow.id, each.id) << each.language << '-' << each.country;
        EXPECT_EQ(wide.id, each.id) << each.language << '-' << each.country;
    }
}

TEST(Locale, IsFoundByItsId)
{
    Locale<wchar_t> locale;
    EXPECT_FALSE(findLocale(locale, 0));
    EXPECT_FALSE(findLocale(locale, 1));
    ASSERT_TRUE(findLocale(locale, 1068));
    EXPECT_EQ(locale.displayName, L"Azeri (Azerbaijan, Latin)");
    EXPECT_EQ(getDefaultLocale().localeName, "en-US");
    EXPECT_EQ(getDefaultWideLocale().localeName, L"en-US");
}

} // namespace
} // namespace quillon::i18n
