#include "shellhelper/unix/Entries.h"

#include "shellhelper/unix/Quoting.h"
#include "vars/Product.h"

#include <utility>

namespace quillon::shellhelper {
namespace {

std::string icon()
{
    std::string_view name = vars::kDesktopFileName;
    name.remove_suffix(std::string_view(".desktop").size());
    return std::string(name);
}

/// One line of a key file.
std::string keyLine(std::string_view key, std::string_view value)
{
    return std::string(key).append("=").append(keyFileValue(value)).append("\n");
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

std::string serviceMenu(const Entry& entry)
{
    return "[Desktop Entry]\n" + keyLine("Type", "Service") +
           keyLine("X-KDE-ServiceTypes", "KonqPopupMenu/Plugin") + keyLine("MimeType", "all/allfiles;") +
           keyLine("X-KDE-RequiredNumberOfUrls", "1") + keyLine("X-KDE-Priority", "TopLevel") +
           keyLine("Actions", "open;") + keyLine(kMark, entry.id) + "\n[Desktop Action open]\n" +
           keyLine("Name", entry.menuText) + keyLine("Icon", icon()) +
           keyLine("Exec", execLine(entry.program));
}

std::string nemoAction(const Entry& entry)
{
    // Nemo splits the line as a shell would, and with Quote=single it puts the path into such quotes.
    return "[Nemo Action]\n" + keyLine("Name", percentDoubled(entry.menuText)) +
           keyLine("Exec", percentDoubled(shellQuoted(entry.program)) + " %F") + keyLine("Quote", "single") +
           keyLine("Selection", "s") + keyLine("Extensions", "nodirs;") + keyLine("Icon-Name", icon()) +
           keyLine(kMark, entry.id);
}

std::string thunarAction(const Entry& entry, std::string_view origin)
{
    // Thunar hands the line to a shell of its own, with the path quoted.
    return "<action>\n\t<!-- " + std::string(kMark) + ' ' + std::string(origin) + " -->\n" +
           element("icon", icon()) + element("name", entry.menuText) + element("unique-id", entry.id) +
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
    return "#!/bin/sh\n" + scriptMark(entry.id) +
           "file=$1\n"
           "# The file manager takes percent signs in arguments for codes, and loses them.\n"
           "case \"$# $" +
           variable +
           "\" in\n"
           "    \"1 \"*%*) file=${" +
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
           keyLine("Icon", icon()) + keyLine("Exec", execLine(program)) + keyLine("Terminal", "false") +
           keyLine(kMark, "true");
}

} // namespace quillon::shellhelper
