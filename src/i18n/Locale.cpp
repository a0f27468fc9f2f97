#include "i18n/Locale.h"

#include "text/AsciiText.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace quillon::i18n {
namespace {

using internal::Locale;

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

// All locales, by English language name and then country. The first of several rows with the same codes is
// the one that a look-up by codes finds. Some rows look like slips ("Afrikaan", "Basque" and "Lithuanian" as
// countries, "kh", codes that two rows share, "Brunei Darassalam"). They stay: settings and translation lists
// in use go by them.
// clang-format off
constexpr LocaleRow kRows[] = {
    {1078, 54, 1, "af-ZA", "Afrikaan", "South Africa"},
    {1052, 28, 1, "sq-AL", "Albanian", "Albania"},
    {1156, 132, 1, "gsw-FR", "Alsatian", "France"},
    {1118, 94, 1, "am-ET", "Amharic", "Ethiopia"},
    {5121, 1, 5, "ar-DZ", "Arabic", "Algeria"},
    {15361, 1, 15, "ar-BH", "Arabic", "Bahrain"},
    {3073, 1, 3, "ar-EG", "Arabic", "Egypt"},
    {2049, 1, 2, "ar-IQ", "Arabic", "Iraq"},
    {11265, 1, 11, "ar-JO", "Arabic", "Jordan"},
    {13313, 1, 13, "ar-KW", "Arabic", "Kuwait"},
    {12289, 1, 12, "ar-LB", "Arabic", "Lebanon"},
    {4097, 1, 4, "ar-LY", "Arabic", "Libya"},
    {6145, 1, 6, "ar-MA", "Arabic", "Morocco"},
    {8193, 1, 8, "ar-OM", "Arabic", "Oman"},
    {16385, 1, 16, "ar-QA", "Arabic", "Qatar"},
    {1025, 1, 1, "ar-SA", "Arabic", "Saudi Arabia"},
    {10241, 1, 10, "ar-SY", "Arabic", "Syria"},
    {7169, 1, 7, "ar-TN", "Arabic", "Tunisia"},
    {14337, 1, 14, "ar-AE", "Arabic", "U.A.E."},
    {9217, 1, 9, "ar-YE", "Arabic", "Yemen"},
    {1067, 43, 1, "hy-AM", "Armenian", "Armenia"},
    {1101, 77, 1, "as-IN", "Assamese", "India"},
    {2092, 44, 2, "az-AZ", "Azeri", "Azerbaijan, Cyrillic"},
    {1068, 44, 1, "az-AZ", "Azeri", "Azerbaijan, Latin"},
    {1133, 109, 1, "ba-RU", "Bashkir", "Russia"},
    {1069, 45, 1, "eu-ES", "Basque", "Basque"},
    {1059, 35, 1, "be-BY", "Belarusian", "Belarus"},
    {1093, 69, 1, "bn-IN", "Bengali", "India"},
    {8218, 26, 8, "bs-BA", "Bosnian", "Bosnia and Herzegovina, Cyrillic"},
    {5146, 26, 5, "bs-BA", "Bosnian", "Bosnia and Herzegovina, Latin"},
    {1150, 126, 1, "br-FR", "Breton", "France"},
    {1026, 2, 1, "bg-BG", "Bulgarian", "Bulgaria"},
    {1027, 3, 1, "ca-ES", "Catalan", "Spain"},
    {3076, 4, 3, "zh-HK", "Chinese", "Hong Kong SAR, PRC"},
    {5124, 4, 5, "zh-MO", "Chinese", "Macao SAR"},
    {4100, 4, 4, "zh-SG", "Chinese", "Singapore"},
    {4, 4, 2, "zh-Hans", "Chinese", "Simplified"},
    {31748, 4, 1, "zh-Hant", "Chinese", "Traditional"},
    {1155, 131, 1, "co-FR", "Corsican", "France"},
    {4122, 26, 4, "hr-BA", "Croatian", "Bosnia and Herzegovina, Latin"},
    {1050, 26, 1, "hr-HR", "Croatian", "Croatia"},
    {1029, 5, 1, "cs-CZ", "Czech", "Czech Republic"},
    {1030, 6, 1, "da-DK", "Danish", "Denmark"},
    {1164, 140, 1, "prs-AF", "Dari", "Afghanistan"},
    {1125, 101, 1, "dv-MV", "Divehi", "Maldives"},
    {2067, 19, 2, "nl-BE", "Dutch", "Belgium"},
    {1043, 19, 1, "nl-NL", "Dutch", "Netherlands"},
    {3081, 9, 3, "en-AU", "English", "Australia"},
    {10249, 9, 10, "en-BE", "English", "Belize"},
    {4105, 9, 4, "en-CA", "English", "Canada"},
    {9225, 9, 9, "en-029", "English", "Caribbean"},
    {16393, 9, 16, "en-IN", "English", "India"},
    {6153, 9, 6, "en-IE", "English", "Ireland"},
    {8201, 9, 8, "en-JM", "English", "Jamaica"},
    {17417, 9, 17, "en-MY", "English", "Malaysia"},
    {5129, 9, 5, "en-NZ", "English", "New Zealand"},
    {13321, 9, 13, "en-PH", "English", "Philippines"},
    {18441, 9, 18, "en-SG", "English", "Singapore"},
    {7177, 9, 7, "en-ZA", "English", "South Africa"},
    {11273, 9, 11, "en-TT", "English", "Trinidad and Tobago"},
    {2057, 9, 2, "en-GB", "English", "United Kingdom"},
    {1033, 9, 1, "en-US", "English", "United States"},
    {12297, 9, 12, "en-ZW", "English", "Zimbabwe"},
    {1061, 37, 1, "et-EE", "Estonian", "Estonia"},
    {1080, 56, 1, "fo-FO", "Faroese", "Faroe Islands"},
    {1124, 100, 1, "fil-PH", "Filipino", "Philippines"},
    {1035, 11, 1, "fi-FI", "Finnish", "Finland"},
    {2060, 12, 2, "fr-BE", "French", "Belgium"},
    {3084, 12, 3, "fr-CA", "French", "Canada"},
    {1036, 12, 1, "fr-FR", "French", "France"},
    {5132, 12, 5, "fr-LU", "French", "Luxembourg"},
    {6156, 12, 6, "fr-MC", "French", "Monaco"},
    {4108, 12, 4, "fr-CH", "French", "Switzerland"},
    {1122, 98, 1, "fy-NL", "Frisian", "Netherlands"},
    {1110, 86, 1, "gl-ES", "Galician", "Spain"},
    {1079, 55, 1, "ka-GE", "Georgian", "Georgia"},
    {3079, 7, 3, "de-AT", "German", "Austria"},
    {1031, 7, 1, "de-DE", "German", "Germany"},
    {5127, 7, 5, "de-LI", "German", "Liechtenstein"},
    {4103, 7, 4, "de-LU", "German", "Luxembourg"},
    {2055, 7, 2, "de-CH", "German", "Switzerland"},
    {1032, 8, 1, "el-GR", "Greek", "Greece"},
    {1135, 111, 1, "kl-GL", "Greenlandic", "Greenland"},
    {1095, 71, 1, "gu-IN", "Gujarati", "India"},
    {1128, 104, 1, "ha-NG", "Hausa", "Nigeria"},
    {1037, 13, 1, "he-IL", "Hebrew", "Israel"},
    {1081, 57, 1, "hi-IN", "Hindi", "India"},
    {1038, 14, 1, "hu-HU", "Hungarian", "Hungary"},
    {1039, 15, 1, "is-IS", "Icelandic", "Iceland"},
    {1136, 112, 1, "ig-NG", "Igbo", "Nigeria"},
    {1057, 33, 1, "id-ID", "Indonesian", "Indonesia"},
    {2141, 93, 2, "iu-CA", "Inuktitut", "Canada, Latin"},
    {1117, 93, 1, "iu-CA", "Inuktitut", "Canada, Canadian Syllabics"},
    {2108, 60, 2, "ga-IE", "Irish", "Ireland"},
    {1076, 52, 1, "xh-ZA", "isiXhosa", "South Africa"},
    {1077, 53, 1, "zu-ZA", "isiZulu", "South Africa"},
    {1040, 16, 1, "it-IT", "Italian", "Italy"},
    {2064, 16, 2, "it-CH", "Italian", "Switzerland"},
    {1041, 17, 1, "ja-JP", "Japanese", "Japan"},
    {1099, 75, 1, "kn-IN", "Kannada", "India"},
    {1087, 63, 1, "kk-KZ", "Kazakh", "Kazakhstan"},
    {1107, 83, 1, "kh-KH", "Khmer", "Cambodia"},
    {1158, 134, 1, "qut-GT", "K'iche", "Guatemala"},
    {1159, 135, 1, "rw-RW", "Kinyarwanda", "Rwanda"},
    {1111, 87, 1, "kok-IN", "Konkani", "India"},
    {1042, 18, 1, "ko-KR", "Korean", "Korea"},
    {1088, 64, 1, "ky-KG", "Kyrgyz", "Kyrgyzstan"},
    {1108, 84, 1, "lo-LA", "Lao", "Lao PDR"},
    {1062, 38, 1, "lv-LV", "Latvian", "Latvia"},
    {1063, 39, 1, "lt-LT", "Lithuanian", "Lithuanian"},
    {2094, 46, 2, "dsb-DE", "Lower Sorbian", "Germany"},
    {1134, 110, 1, "lb-LU", "Luxembourgish", "Luxembourg"},
    {1071, 47, 1, "mk-MK", "Macedonian", "Macedonia"},
    {2110, 62, 2, "ms-BN", "Malay", "Brunei Darassalam"},
    {1086, 62, 1, "ms-MY", "Malay", "Malaysia"},
    {1100, 76, 1, "ml-IN", "Malayalam", "India"},
    {1082, 58, 1, "mt-MT", "Maltese", "Malta"},
    {1153, 129, 1, "mi-NZ", "Maori", "New Zealand"},
    {1146, 122, 1, "arn-CL", "Mapudungun", "Chile"},
    {1102, 78, 1, "mr-IN", "Marathi", "India"},
    {1148, 124, 1, "moh-CA", "Mohawk", "Canada"},
    {1104, 80, 1, "mn-MN", "Mongolian", "Mongolia, Cyrillic"},
    {2128, 80, 2, "mn-MN", "Mongolian", "Mongolia, Mong"},
    {1121, 97, 1, "ne-NP", "Nepali", "Nepal"},
    {1044, 20, 1, "no-NO", "Norwegian", "Norway"},
    {2068, 20, 2, "no-NO", "Norwegian", "Nynorsk, Norway"},
    {1154, 130, 1, "oc-FR", "Occitan", "France"},
    {1096, 72, 1, "or-IN", "Oriya", "India"},
    {1123, 99, 1, "ps-AF", "Pashto", "Afghanistan"},
    {1065, 41, 1, "fa-IR", "Persian", "Iran"},
    {1045, 21, 1, "pl-PL", "Polish", "Poland"},
    {1046, 22, 1, "pt-BR", "Portuguese", "Brazil"},
    {2070, 22, 2, "pt-PT", "Portuguese", "Portugal"},
    {1094, 70, 1, "pa-IN", "Punjabi", "India"},
    {1131, 107, 1, "quz-BO", "Quechua", "Bolivia"},
    {2155, 107, 2, "quz-EC", "Quechua", "Ecuador"},
    {3179, 107, 3, "quz-PE", "Quechua", "Peru"},
    {1048, 24, 1, "ro-RO", "Romanian", "Romania"},
    {1047, 23, 1, "rm-CH", "Romansh", "Switzerland"},
    {1049, 25, 1, "ru-RU", "Russian", "Russia"},
    {9275, 59, 9, "smn-FI", "Sami", "Inari, Finland"},
    {4155, 59, 4, "smj-NO", "Sami", "Lule, Norway"},
    {5179, 59, 5, "smj-SE", "Sami", "Lule, Sweden"},
    {3131, 59, 3, "se-FI", "Sami", "Northern, Finland"},
    {1083, 59, 1, "se-NO", "Sami", "Northern, Norway"},
    {2107, 59, 2, "se-SE", "Sami", "Northern, Sweden"},
    {8251, 59, 8, "sms-FI", "Sami", "Skolt, Finland"},
    {6203, 59, 6, "sma-NO", "Sami", "Southern, Norway"},
    {7227, 59, 7, "sma-SE", "Sami", "Southern, Sweden"},
    {1103, 79, 1, "sa-IN", "Sanskrit", "India"},
    {7194, 26, 7, "sr-BA", "Serbian", "Bosnia and Herzegovina, Cyrillic"},
    {6170, 26, 6, "sr-BA", "Serbian", "Bosnia and Herzegovina, Latin"},
    {3098, 26, 3, "sr-CS", "Serbian", "Serbia and Montenegro, Former, Cyrillic"},
    {2074, 26, 2, "sr-CS", "Serbian", "Serbia and Montenegro, Former, Latin"},
    {1132, 108, 1, "nso-ZA", "Sesotho sa Leboa", "South Africa"},
    {1074, 50, 1, "tn-ZA", "Setswana", "South Africa"},
    {1115, 91, 1, "si-LK", "Sinhala", "Sri Lanka"},
    {1051, 27, 1, "sk-SK", "Slovak", "Slovakia"},
    {1060, 36, 1, "sl-SI", "Slovenian", "Slovenia"},
    {11274, 10, 11, "es-AR", "Spanish", "Argentina"},
    {16394, 10, 16, "es-BO", "Spanish", "Bolivia"},
    {13322, 10, 13, "es-CL", "Spanish", "Chile"},
    {9226, 10, 9, "es-CO", "Spanish", "Colombia"},
    {5130, 10, 5, "es-CR", "Spanish", "Costa Rica"},
    {7178, 10, 7, "es-DO", "Spanish", "Dominican Republic"},
    {12298, 10, 12, "es-EC", "Spanish", "Ecuador"},
    {17418, 10, 17, "es-SV", "Spanish", "El Salvador"},
    {4106, 10, 4, "es-GT", "Spanish", "Guatemala"},
    {18442, 10, 18, "es-HN", "Spanish", "Honduras"},
    {2058, 10, 2, "es-MX", "Spanish", "Mexico"},
    {19466, 10, 19, "es-NI", "Spanish", "Nicaragua"},
    {6154, 10, 6, "es-PA", "Spanish", "Panama"},
    {15370, 10, 15, "es-PY", "Spanish", "Paraguay"},
    {10250, 10, 10, "es-PE", "Spanish", "Peru"},
    {20490, 10, 20, "es-PR", "Spanish", "Puerto Rico"},
    {1034, 10, 1, "es-ES", "Spanish", "Spain"},
    {21514, 10, 21, "es-US", "Spanish", "United States"},
    {14346, 10, 14, "es-UY", "Spanish", "Uruguay"},
    {8202, 10, 8, "es-VE", "Spanish", "Venezuela"},
    {1089, 65, 1, "sw-KE", "Swahili", "Kenya"},
    {2077, 29, 2, "sv-FI", "Swedish", "Finland"},
    {1053, 29, 1, "sv-SE", "Swedish", "Sweden"},
    {1114, 90, 1, "syr-SY", "Syriac", "Syria"},
    {1064, 40, 1, "tg-TJ", "Tajik", "Tajikistan"},
    {2143, 95, 2, "tzm-DZ", "Tamazight", "Algeria"},
    {1097, 73, 1, "ta-IN", "Tamil", "India"},
    {1092, 68, 1, "tt-RU", "Tatar", "Russia"},
    {1098, 74, 1, "te-IN", "Telugu", "India"},
    {1054, 30, 1, "th-TH", "Thai", "Thailand"},
    {1105, 81, 1, "bo-CN", "Tibetan", "PRC"},
    {1055, 31, 1, "tr-TR", "Turkish", "Turkey"},
    {1090, 66, 1, "tk-TM", "Turkmen", "Turkmenistan"},
    {1058, 34, 1, "uk-UA", "Ukrainian", "Ukraine"},
    {1070, 46, 1, "hsb-DE", "Upper Sorbian", "Germany"},
    {1056, 32, 1, "ur-PK", "Urdu", "Pakistan"},
    {1152, 128, 1, "ug-CN", "Uyghur", "PRC"},
    {2115, 67, 2, "uz-UZ", "Uzbek", "Uzbekistan, Cyrillic"},
    {1091, 67, 1, "uz-UZ", "Uzbek", "Uzbekistan, Latin"},
    {1066, 42, 1, "vi-VN", "Vietnamese", "Vietnam"},
    {1106, 82, 1, "cy-GB", "Welsh", "United Kingdom"},
    {1160, 136, 1, "wo-SN", "Wolof", "Senegal"},
    {1157, 133, 1, "sah-RU", "Yakut", "Russia"},
    {1144, 120, 1, "ii-CN", "Yi", "PRC"},
    {1130, 106, 1, "yo-NG", "Yoruba", "Nigeria"},
};
// clang-format on

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
    const auto* const row = std::ranges::find_if(kRows, isWanted);
    if (row == std::end(kRows))
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
