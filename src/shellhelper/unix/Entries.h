#pragma once

#include <string>
#include <string_view>

/// The contents of the files that file managers read, with the quoting that each of their formats needs. All
/// texts are UTF-8; `program` is a full path, and reaches the system whole whatever it holds. The id is
/// written into each file as our mark.
namespace quillon::shellhelper {

/// The key, or the word in a comment, that says whose a file is.
inline constexpr std::string_view kMark = "X-Kestrum-Generated";

/// What a file manager's entry says.
struct Entry
{
    std::string menuText;
    std::string program;
    std::string id;
};

/// The program of a command line that starts it with the item alone, in the form that the contract of the
/// context menu functions tells. Empty where the line has another form.
[[nodiscard]] std::string programOfCommand(std::string_view line);

/// A text as the content of an XML element. Control characters that XML does not know become blanks.
[[nodiscard]] std::string xmlEscaped(std::string_view text);

/// A service menu for Dolphin and what else uses KDE's file actions. Its file has to be executable.
[[nodiscard]] std::string serviceMenu(const Entry& entry);

[[nodiscard]] std::string nemoAction(const Entry& entry);

/// An action element for Thunar, without a line feed at the end. `origin` is a word for the comment in it.
[[nodiscard]] std::string thunarAction(const Entry& entry, std::string_view origin);

/// A script as GNOME Files and Caja run it, with the names of the selected files as arguments.
/// `pathsVariable` is the environment variable in which the file manager also gives the full paths, each with
/// a line feed behind it.
[[nodiscard]] std::string fileScript(const Entry& entry, std::string_view pathsVariable);

/// The line of a script that says that it is ours.
[[nodiscard]] std::string scriptMark(std::string_view id);

/// A desktop entry for Thunar's Send To menu. It holds no id, since it is known by its path.
[[nodiscard]] std::string sendToEntry(std::string_view name, std::string_view program);

} // namespace quillon::shellhelper
