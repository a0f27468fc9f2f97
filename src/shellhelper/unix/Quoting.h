#pragma once

#include <string>
#include <string_view>

/// The ways in which the file managers' formats keep a text whole. None fails; what a way cannot hold is said
/// there.
namespace quillon::shellhelper {

/// One word for a POSIX shell and for everything that splits words like one, as g_shell_parse_argv does: in
/// single quotes, where nothing is special.
[[nodiscard]] std::string shellQuoted(std::string_view word);

/// One argument of an Exec line, always in quotes (Desktop Entry Specification, "The Exec key"). For a key
/// file the line still has to go through `keyFileValue`.
[[nodiscard]] std::string execQuoted(std::string_view argument);

/// Every percent sign twice, which field codes take for one.
[[nodiscard]] std::string percentDoubled(std::string_view text);

/// A text as the value of a key (Desktop Entry Specification, "Possible value types", type string).
[[nodiscard]] std::string keyFileValue(std::string_view text);

/// A text as the content of an XML element. Control characters that XML does not know become blanks.
[[nodiscard]] std::string xmlEscaped(std::string_view text);

} // namespace quillon::shellhelper
