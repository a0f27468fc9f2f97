#pragma once

#include <cstdint>
#include <string>

namespace quillon::i18n::internal {

/// What a translation list may call the kind of a file. The files are all read the same way.
enum TranslationType : std::uint32_t
{
    kTranslationNone = 0,
    kTranslationProperties = 1,
    kTranslationTranslations = 16,
    kTranslationDll = 32,
};

/// One entry of the translation list. Texts are UTF-8.
template <class Char>
struct Translation
{
    std::uint32_t type = kTranslationNone;
    std::basic_string<Char> displayName; ///< as a list of languages shows it
    std::basic_string<Char> language;    ///< language code
    std::basic_string<Char> country;     ///< country code
    std::basic_string<Char> file;        ///< absolute, or relative to the languages folder
    std::basic_string<Char> description;
};

} // namespace quillon::i18n::internal
