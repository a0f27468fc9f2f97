#include "shellhelper/unix/Quoting.h"

namespace quillon::shellhelper {
namespace {

/// `text` with every character replaced by what `form` makes of it.
template <class Form>
std::string mapped(std::string_view text, Form form)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text)
        result += form(c);
    return result;
}

std::string keyFileForm(char c)
{
    switch (c) {
    case '\\':
        return "\\\\";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return {c};
    }
}

std::string xmlForm(char c)
{
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r': // a parser makes a line feed of the character itself
        return "&#13;";
    case '\t':
    case '\n':
        return {c};
    default:
        return {c >= 0 && c < ' ' ? ' ' : c};
    }
}

} // namespace

std::string shellQuoted(std::string_view word)
{
    return '\'' + mapped(word, [](char c) { return c == '\'' ? std::string("'\\''") : std::string{c}; }) +
           '\'';
}

std::string execQuoted(std::string_view argument)
{
    const auto form = [](char c) {
        const bool isSpecial = c == '"' || c == '`' || c == '$' || c == '\\';
        return isSpecial ? std::string{'\\', c} : std::string{c};
    };
    return '"' + mapped(argument, form) + '"';
}

std::string percentDoubled(std::string_view text)
{
    return mapped(text, [](char c) { return std::string(c == '%' ? 2U : 1U, c); });
}

std::string keyFileValue(std::string_view text)
{
    std::string value = mapped(text, keyFileForm);
    // Readers skip blanks behind the equals sign.
    if (value.starts_with(' '))
        value.replace(0, 1, "\\s");
    return value;
}

std::string xmlEscaped(std::string_view text)
{
    return mapped(text, xmlForm);
}

} // namespace quillon::shellhelper
