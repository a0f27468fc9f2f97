#include "shellhelper/unix/Entries.h"

#include "vars/Product.h"

#include <algorithm>

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

/// One word for a POSIX shell and for everything that splits words like one, as g_shell_parse_argv does: in
/// single quotes, where nothing is special.
std::string shellQuoted(std::string_view word)
{
    return '\'' + mapped(word, [](char c) { return c == '\'' ? std::string("'\\''") : std::string{c}; }) +
           '\'';
}

/// One argument of an Exec line, always in quotes (Desktop Entry Specification, "The Exec key"). For a key
/// file the line still has to go through `keyFileValue`.
std::string execQuoted(std::string_view argument)
{
    const auto form = [](char c) {
        const bool isSpecial = c == '"' || c == '`' || c == '$' || c == '\\';
        return isSpecial ? std::string{'\\', c} : std::string{c};
    };
    return '"' + mapped(argument, form) + '"';
}

/// Every percent sign twice, which field codes take for one.
std::string percentDoubled(std::string_view text)
{
    return mapped(text, [](char c) { return std::string(c == '%' ? 2U : 1U, c); });
}

/// A text as the value of a key (Desktop Entry Specification, "Possible value types", type string).
std::string keyFileValue(std::string_view text)
{
    std::string value = mapped(text, keyFileForm);
    // Readers skip blanks behind the equals sign.
    if (value.starts_with(' '))
        value.replace(0, 1, "\\s");
    return value;
}

constexpr std::string_view kItem = "%L";

/// Takes one word off the front of `line`, with its quotes, and the blanks around it. Empty where a quote is
/// missing.
std::string_view takeWord(std::string_view& line)
{
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    bool isQuoted = false;
    std::size_t end = 0;
    for (; end < line.size() && (isQuoted || line[end] != ' '); ++end) {
        if (line[end] == '"')
            isQuoted = !isQuoted;
        else if (line[end] == '\\' && isQuoted)
            ++end;
    }
    if (isQuoted || end > line.size())
        return {};
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(end);
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    return word;
}

/// The word without its quotes. Empty where it has a code in it.
std::string unquoted(std::string_view word)
{
    std::string text;
    bool isQuoted = false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] == '"') {
            isQuoted = !isQuoted;
            continue;
        }
        if (word[i] == '%' && word.substr(i, 2) != "%%")
            return {};
        if (word[i] == '%' || (word[i] == '\\' && isQuoted))
            ++i;
        text += word[i];
    }
    return text;
}

bool isItem(std::string_view word)
{
    return word == kItem || (word.size() == kItem.size() + 2 && word.front() == '"' && word.back() == '"' &&
                             word.substr(1, kItem.size()) == kItem);
}

/// One line of a key file.
std::string keyLine(std::string_view key, std::string_view value)
{
    return std::string(key).append("=").append(keyFileValue(value)).append("\n");
}

/// The line that hides an entry once its program is gone, for formats that know one: no removal of the
/// program can take the entry out of all the homes.
std::string tryExecLine(std::string_view program)
{
    return keyLine("TryExec", program);
}

/// Nemo's own form of it: a list, in which a semicolon parts two programs.
std::string dependencyLine(std::string_view program)
{
    const auto form = [](char c) { return c == ';' ? std::string("\\;") : std::string{c}; };
    return "Dependencies=" + mapped(keyFileValue(program), form) + '\n';
}

/// The Exec value of a desktop entry that takes one file. Readers look for the program before they take the
/// double percent signs out and would not find it, so where it has any another one starts it.
std::string execLine(std::string_view program)
{
    const char* const starter = program.find('%') == std::string_view::npos ? "" : "nice -n 0 ";
    return starter + percentDoubled(execQuoted(program)) + " %f";
}

std::string element(std::string_view name, std::string_view text)
{
    return "\t<" + std::string(name) + '>' + xmlEscaped(text) + "</" + std::string(name) + ">\n";
}

} // namespace

std::string programOfCommand(std::string_view line)
{
    std::string program = unquoted(takeWord(line));
    const bool isKnownForm = program.starts_with('/') && isItem(takeWord(line)) && line.empty();
    return isKnownForm ? program : std::string();
}

std::string xmlEscaped(std::string_view text)
{
    return mapped(text, xmlForm);
}

std::string serviceMenu(const Entry& entry)
{
    return "[Desktop Entry]\n" + keyLine("Type", "Service") +
           keyLine("X-KDE-ServiceTypes", "KonqPopupMenu/Plugin") + keyLine("MimeType", "all/allfiles;") +
           keyLine("X-KDE-RequiredNumberOfUrls", "1") + keyLine("X-KDE-Priority", "TopLevel") +
           keyLine("Actions", "open;") + tryExecLine(entry.program) + keyLine(kMark, entry.id) +
           "\n[Desktop Action open]\n" + keyLine("Name", entry.menuText) + keyLine("Icon", vars::kDesktopId) +
           keyLine("Exec", execLine(entry.program));
}

std::string nemoAction(const Entry& entry)
{
    // Nemo splits the line as a shell would, and with Quote=single it puts the path into such quotes.
    return "[Nemo Action]\n" + keyLine("Name", percentDoubled(entry.menuText)) +
           keyLine("Exec", percentDoubled(shellQuoted(entry.program)) + " %F") + keyLine("Quote", "single") +
           keyLine("Selection", "s") + keyLine("Extensions", "nodirs;") + dependencyLine(entry.program) +
           keyLine("Icon-Name", vars::kDesktopId) + keyLine(kMark, entry.id);
}

std::string thunarAction(const Entry& entry, std::string_view origin)
{
    // Thunar hands the line to a shell of its own, with the path quoted.
    return "<action>\n\t<!-- " + std::string(kMark) + ' ' + std::string(origin) + " -->\n" +
           element("icon", vars::kDesktopId) + element("name", entry.menuText) +
           element("unique-id", entry.id) +
           element("command", percentDoubled(shellQuoted(entry.program)) + " %f") +
           element("description", "") + element("range", "1-1") + element("patterns", "*") +
           "\t<audio-files/>\n\t<image-files/>\n\t<other-files/>\n\t<text-files/>\n\t<video-files/>\n"
           "</action>";
}

std::string scriptMark(std::string_view id)
{
    return "# " + std::string(kMark) + '=' + std::string(id) + '\n';
}

std::string fileScript(const Entry& entry, std::string_view pathsVariable)
{
    const std::string variable(pathsVariable);
    return "#!/bin/sh\n" + scriptMark(entry.id) + "# " + vars::kProductName +
           " owns this file and writes it anew. Where several files are selected it does nothing.\n"
           "[ $# -eq 1 ] || exit 0\n"
           "file=$1\n"
           "# The file manager takes percent signs in arguments for codes, and loses them.\n"
           "case $" +
           variable +
           " in\n"
           "    *%*) file=${" +
           variable +
           "%?} ;;\n"
           "esac\n"
           "# A name without its folder might look like a switch.\n"
           "case $file in\n"
           "    '') exit ;;\n"
           "    /*) ;;\n"
           "    *) file=$PWD/$file ;;\n"
           "esac\n"
           "exec " +
           shellQuoted(entry.program) + " \"$file\"\n";
}

std::string sendToEntry(std::string_view name, std::string_view program)
{
    return "[Desktop Entry]\n" + keyLine("Type", "Application") + keyLine("Name", name) +
           keyLine("Icon", vars::kDesktopId) + tryExecLine(program) + keyLine("Exec", execLine(program)) +
           keyLine("Terminal", "false") + keyLine(kMark, "true");
}

} // namespace quillon::shellhelper
