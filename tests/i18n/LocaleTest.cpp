#include "i18n/Locale.h"

#include "support/CaseTable.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::i18n {
namespace {

/// What the look-up of a row finds, as the table writes it.
template <class Char>
std::string found(const tests::CaseRow& row)
{
    const std::basic_string<Char> language(row[0].begin(), row[0].end());
    const std::basic_string<Char> country(row[1].begin(), row[1].end());
    internal::Locale<Char> locale;
    locale.id = 7;
    const bool isFound = row[2].empty() ? findLocale(locale, language, country)
                                        : findLocale(locale, static_cast<std::uint32_t>(std::stoul(row[2])));
    std::string all = std::to_string(locale.id) + ' ' + std::to_string(locale.primaryLanguage) + ' ' +
                      std::to_string(locale.subLanguage);
    for (const auto& name : {locale.displayName, locale.languageName, locale.countryName, locale.localeName,
                             locale.languageCode, locale.countryCode})
        all += '/' + std::string(name.begin(), name.end());
    return !isFound && all == "7 0 0//////" ? "none" : all;
}

TEST(Locale, IsTheFirstWithTheIdOrTheCodes)
{
    for (const tests::CaseRow& row : tests::readCaseTable("i18n/locales.txt")) {
        EXPECT_EQ(found<char>(row), row[3]) << row[0];
        EXPECT_EQ(found<wchar_t>(row), row[3]) << row[0];
    }
    EXPECT_EQ(getDefaultWideLocale().localeName, L"en-US");
}

} // namespace
} // namespace quillon::i18n
