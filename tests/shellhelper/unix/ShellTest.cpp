#include "platform/Process.h"
#include "shellhelper/HelperLibrary.h"
#include "support/CaseTable.h"
#include "support/TempFolder.h"
#include "support/Wait.h"
#include "text/Unicode.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>

namespace quillon::tests {
namespace {

constexpr err::ResultCode kSuccess;

std::string bytesOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A user with a home of the test's own, and beside it the programs that the test puts into the search path.
class Desktop : public testing::Test
{
protected:
    Desktop()
    {
        const char* const folders[][2] = {{"HOME", "home"},
                                          {"XDG_DATA_HOME", "home/data/"},
                                          {"XDG_CONFIG_DIRS", "home/etc"},
                                          {"PATH", "bin"},
                                          {"TESTS", KESTRUM_TEST_DATA}};
        for (const auto& [variable, name] : folders)
            setenv(variable, m_folder.file(name).c_str(), 1);
        setenv("XDG_CONFIG_HOME", "config", 1); // no full path, and so none
        std::filesystem::create_directory(path(""));
    }

    /// The full name of what is called so in the user's home.
    [[nodiscard]] std::string path(const std::string& name) const
    {
        return m_folder.file("home/" + name).string();
    }

    /// What a line for the shell prints in the user's home, without the line feed at the end.
    static std::string shell(const std::string& line)
    {
        std::FILE* const output = popen(("cd && LC_ALL=C PATH=/usr/bin:/bin && " + line).c_str(), "r");
        std::string text;
        for (int c = 0; (c = std::fgetc(output)) != EOF;)
            text += static_cast<char>(c);
        EXPECT_EQ(pclose(output), 0) << line;
        return text.substr(0, text.find_last_not_of('\n') + 1);
    }

    static err::ResultCode create(const std::string& program, const std::string& text)
    {
        return tests::create(L"*", text::wideFromUtf8(text), platform::shellFileCommand(program));
    }

    [[nodiscard]] err::ResultCode createLink(const std::string& program, const std::string& text) const
    {
        return asResult(helper().createShellLink(program.c_str(), text.c_str(), m_link.c_str()));
    }

    const TempFolder m_folder;
    const std::string m_link = path("data/Thunar/sendto/k.desktop");
};

TEST_F(Desktop, KeepsThunarsListByteForByte)
{
    shell("mkdir -p .config/Thunar");
    std::vector<CaseRow> rows = readCaseTable("shellhelper/unix/actions.txt");
    const std::string whole = rows[0].at(1);
    for (std::size_t size = 0; size < whole.size() - 2; size += 5)
        rows.push_back({"damaged", whole.substr(0, size)});
    for (const CaseRow& row : rows) {
        const err::ResultCode result = row[0] == "kept" ? kSuccess : err::systemError(EILSEQ);
        const std::filesystem::path file = m_folder.write("home/.config/Thunar/uca.xml", row.at(1));
        std::filesystem::permissions(file, std::filesystem::perms(0600));
        EXPECT_FALSE(err::succeeded(exists(L"*"))) << row[1];
        EXPECT_EQ(create("/opt/k", "a"), result) << row[1];
        EXPECT_EQ(create("/opt/other", "b"), result) << row[1];
        EXPECT_EQ(err::succeeded(exists(L"*")), row[0] == "kept") << row[1];
        EXPECT_EQ(remove(L"*"), kSuccess);
        EXPECT_EQ(bytesOf(file), row[1]);
        EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0600));
    }
}

class Scenes : public Desktop
{
protected:
    const std::map<std::string, std::function<err::ResultCode(const CaseRow&)>> m_calls{
        {"create", [](auto& row) { return create(row[2], row[3]); }},
        {"homeless", [](auto& row) { return unsetenv("HOME"), create(row[2], row[3]); }},
        {"command",
         [](auto& row) {
             const char* const id = row[4] == "none" ? nullptr : row[4].c_str();
             return asResult(helper().createShellContextMenuForUser(row[2].c_str(), "a", row[3].c_str(), id));
         }},
        {"exists", [](auto& /*row*/) { return exists(L"*"); }},
        {"remove", [](auto& /*row*/) { return remove(L"*"); }},
        {"shortcut", [this](auto& row) { return createLink(row[2], row[3]); }},
        {"open", [this](auto& row) { return asResult(helper().openDir(path(row[2]).c_str())); }},
        {"select",
         [this](auto& row) { return asResult(helper().openDirAndSelectItem(path(row[2]).c_str())); }},
    };

    [[nodiscard]] std::string answer(const CaseRow& row) const
    {
        if (row[1] == "sh")
            return shell(row[2]);
        const err::ResultCode result = m_calls.at(row[1])(row);
        return std::to_string(result.group) + '/' + std::to_string(result.code);
    }
};

TEST_F(Scenes, GoAsTheirTableSays)
{
    for (CaseRow& row : readCaseTable("shellhelper/unix/scenes.txt")) {
        row.resize(5);
        EXPECT_EQ(answer(row), row[0]) << inBrackets(row);
    }
}

// Each entry is run as its file manager does it, by the real tool where there is one, and the program that it
// starts tells what it got.

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

class AwkwardNames : public Desktop
{
protected:
    /// What stands between two marks in one of the user's files.
    [[nodiscard]] std::string between(const std::string& name, const std::string& begin,
                                      const char* end) const
    {
        const std::string text = bytesOf(path(name));
        const std::size_t at = text.find(begin) + begin.size();
        return text.substr(at, text.find(end, at) - at);
    }

    /// Runs a line in the file's folder, as file managers do, and waits for the program, which may run on
    /// when the tool that started it is gone.
    void expectArrivalBy(const std::string& file, const std::string& line) const
    {
        shell(line);
        EXPECT_TRUE(waitUntil([this] { return HasFailure() || std::filesystem::exists(path("arguments")); }))
            << line;
        EXPECT_EQ(bytesOf(path("arguments")), file + '\0') << line;
        std::filesystem::remove(path("arguments"));
    }

    /// Makes the entries for a program of this name, and has each started for a file of that name.
    void expectArrival(const std::string& programName, const std::string& name) const
    {
        shell("rm -rf ./* .config");
        const std::string file = quoted(path(name));
        const std::string program = m_folder.write("home/" + programName, kRecorder).string();
        m_folder.write("home/" + name, "");
        shell("chmod +x " + quoted(program) +
              " && mkdir -p .config/Thunar data/kio/servicemenus data/nemo data/nautilus data/Thunar/sendto");
        ASSERT_EQ(create(program, "Check"), kSuccess);
        ASSERT_EQ(createLink(program, "Kestrum"), kSuccess);

        expectArrivalBy(path(name),
                        "desktop-file-validate " + m_link + " && gio launch " + m_link + ' ' + file);
        // Only the frame differs from a desktop entry that can be launched on its own.
        const std::string menu =
            between("data/kio/servicemenus/" + text::utf8FromWide(kId) + ".desktop", "\nExec=", "\n");
        m_folder.write("home/service.desktop",
                       "[Desktop Entry]\nType=Application\nName=x\nExec=" + menu + '\n');
        expectArrivalBy(path(name), "gio launch service.desktop " + file);

        const std::string action = between(".config/Thunar/uca.xml", "<command>", "</command>");
        const std::string command =
            replaced(action, {{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}, {"&#13;", "\r"}});
        expectArrivalBy(path(name), replaced(command, {{"%%", "%"}, {"%f", file}}));
        // Nemo has no shell in between; to split words in single quotes, one does the same.
        const std::string value =
            between("data/nemo/actions/" + text::utf8FromWide(kId) + ".nemo_action", "\nExec=", "\n");
        const std::string line =
            replaced(value, {{"\\\\", "\\"}, {"\\n", "\n"}, {"\\r", "\r"}, {"\\t", "\t"}});
        expectArrivalBy(path(name), replaced(line, {{"%%", "%"}, {"%F", file}}));

        const std::string script = path("data/nautilus/scripts/Check ");
        expectArrivalBy(path(name), script + file);
        expectArrivalBy(path(name), script + quoted(name)); // a name in the folder that is shown
        // As GNOME Files mangles it.
        setenv("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS", (path(name) + '\n').c_str(), 1);
        expectArrivalBy(path(name), script + quoted(replaced(name, {{"%", ""}})));
        unsetenv("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS");
        shell(script + file + ' ' + file); // does nothing
        EXPECT_FALSE(std::filesystem::exists(path("ran")));
    }
};

TEST_F(AwkwardNames, ReachTheProgramFromEveryFileManager)
{
    for (const CaseRow& names : readCaseTable("shellhelper/unix/names.txt"))
        expectArrival(names[0], names.at(1));
}

} // namespace
} // namespace quillon::tests
