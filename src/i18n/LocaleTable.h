#pragma once

#include <cstdint>
#include <span>

namespace quillon::i18n::internal {

/// A locale as the catalogue holds it. The other names of a Locale follow from these. All texts are ASCII.
struct LocaleRow
{
    std::uint32_t id;
    std::uint32_t primaryLanguage;
    std::uint32_t subLanguage;
    const char* localeName; ///< language code, hyphen, country code
    const char* languageName;
    const char* countryName;
};

/// All locales, by English language name and then country. The first of several rows with the same codes is
/// the one that a lookup by codes finds.
[[nodiscard]] std::span<const LocaleRow> localeTable() noexcept;

} // namespace quillon::i18n::internal
