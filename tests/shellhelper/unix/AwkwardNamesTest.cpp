// Each entry is run as its file manager does it, by the real tool where there is one, and the program that it
// starts tells what it got.

#include "shellhelper/unix/Desktop.h"
#include "support/CaseTable.h"
#include "support/Wait.h"

#include <algorithm>

namespace quillon::tests {
namespace {

/// Stands for the program: writes its arguments, a zero behind each, into a file beside itself.
constexpr const char* kRecorder =
    "#!/bin/sh\nfolder=${0%/*}\nfor text; do printf '%s\\0' \"$text\"; done >\"$folder/part\"\n"
    "mv \"$folder/part\" \"$folder/arguments\"\n";

using Replacements = std::vector<std::pair<std::string, std::string>>;

/// `text` read once from left to right, with the first replacement that fits at each place.
std::string replaced(const std::string& text, const Replacements& replacements)
{
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const auto fit = std::ranges::find_if(replacements, [&](const auto& replacement) {
            return text.compare(at, replacement.first.size(), replacement.first) == 0;
        });
        const bool isFound = fit != replacements.end();
        result += isFound ? fit->second : text.substr(at, 1);
        at += isFound ? fit->first.size() : 1;
    }
    return result;
}

/// One word for the shell.
std::string quoted(const std::string& word)
{
    return '\'' + replaced(word, {{"'", "'\\''"}}) + '\'';
}

class AwkwardNames : public Desktop, public testing::WithParamInterface<CaseRow>
{
protected:
    /// What stands between two marks in one of the user's files.
    [[nodiscard]] std::string between(const std::string& name, const std::string& begin,
                                      const char* end) const
    {
        const std::string text = bytes(name);
        const std::size_t at = text.find(begin) + begin.size();
        return text.substr(at, text.find(end, at) - at);
    }

    /// Runs a shell's line in the file's folder, as file managers do, and waits for the program, which may
    /// run on when the tool that started it is gone.
    void expectArrivalBy(const std::string& line) const
    {
        EXPECT_EQ(std::system(("cd " + quoted(path("").string()) + " && " + line).c_str()), 0) << line;
        EXPECT_TRUE(waitUntil([this] { return std::filesystem::exists(path("arguments")); })) << line;
        EXPECT_EQ(bytes("arguments"), path(GetParam()[1]).string() + '\0') << line;
        std::filesystem::remove(path("arguments"));
    }
};

TEST_P(AwkwardNames, ReachTheProgramFromEveryFileManager)
{
    const std::string& name = GetParam().at(1);
    const std::string file = quoted(path(name).string());
    const std::string program = path(GetParam()[0]).string();
    const std::string link = path("data/Thunar/sendto/k.desktop").string();
    setenv("PATH", (path("bin").string() + ":/usr/bin:/bin").c_str(), 1);
    install({"dolphin", "thunar", "nemo", "nautilus"});
    std::filesystem::permissions(write(GetParam()[0], kRecorder), std::filesystem::perms::owner_all);
    write(name, "");
    EXPECT_EQ(create(program), err::ResultCode());
    EXPECT_EQ(asResult(helper().createShellLink(program.c_str(), "Kestrum", link.c_str())),
              err::ResultCode());

    expectArrivalBy("desktop-file-validate " + link + " && gio launch " + link + ' ' + file);
    // Only the frame differs from a desktop entry that can be launched on its own.
    const std::string menu = between("data/kio/servicemenus/" + m_id + ".desktop", "\nExec=", "\n");
    write("service.desktop", "[Desktop Entry]\nType=Application\nName=x\nExec=" + menu + '\n');
    expectArrivalBy("gio launch service.desktop " + file);

    const std::string action = between(m_actions, "<command>", "</command>");
    const std::string command = replaced(action, {{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}});
    expectArrivalBy(replaced(command, {{"%%", "%"}, {"%f", file}}));
    // Nemo has no shell in between; to split words in single quotes, one does the same.
    const std::string value = between("data/nemo/actions/" + m_id + ".nemo_action", "\nExec=", "\n");
    const std::string line = replaced(value, {{"\\\\", "\\"}, {"\\n", "\n"}, {"\\t", "\t"}});
    expectArrivalBy(replaced(line, {{"%%", "%"}, {"%F", file}}));

    const std::string script = path("data/nautilus/scripts/Check").string() + ' ';
    expectArrivalBy(script + file);
    expectArrivalBy(script + quoted(name)); // a name in the folder that is shown
    // As GNOME Files mangles it.
    setenv("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS", (path(name).string() + '\n').c_str(), 1);
    expectArrivalBy(script + quoted(replaced(name, {{"%", ""}})));
    unsetenv("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS");
    EXPECT_FALSE(std::filesystem::exists(path("ran")));
}

INSTANTIATE_TEST_SUITE_P(All, AwkwardNames, testing::ValuesIn(readCaseTable("shellhelper/unix/names.txt")),
                         [](const auto& names) { return std::to_string(names.index); });

} // namespace
} // namespace quillon::tests
