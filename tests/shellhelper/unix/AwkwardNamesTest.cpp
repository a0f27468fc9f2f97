// Each entry is run as its file manager does it, by the real tool where there is one, and the program that it
// starts tells what it got.

#include "shellhelper/unix/Desktop.h"
#include "support/Wait.h"

#include <sys/wait.h>
#include <unistd.h>

#include <vector>

namespace quillon::tests {
namespace {

struct Names
{
    std::string program;
    std::string file;
};

const Names kNames[] = {{"kestrum", "plain"},
                        {"a 'b' \"c\" \\d", " 'a' \"b\" \\c\\\\ "},
                        {"$(touch ran)", "$(touch ran) `touch ran` $HOME"},
                        {"`touch ran`;touch ran", ";touch ran & #|<>*?~"},
                        {"line\nfeed\t!", "line\nfeed\r\t"},
                        {"100%f %% %L %", "100%f %% %c %"},
                        {"\u0438\u043C\u044F =", "\u0444\u0430\u0439\u043B \u6587\u4EF6"},
                        {"-dash", "-platform"}};

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
        std::string taken = text.substr(at, 1);
        std::string given = taken;
        for (const auto& [from, to] : replacements) {
            if (taken.size() == 1 && given == taken && text.compare(at, from.size(), from) == 0) {
                taken = from;
                given = to;
            }
        }
        result += given;
        at += taken.size();
    }
    return result;
}

class AwkwardNames : public Desktop, public testing::WithParamInterface<Names>
{
protected:
    AwkwardNames()
    {
        setenv("PATH", (path("bin").string() + ":/usr/bin:/bin").c_str(), 1);
        install({"dolphin", "thunar", "nemo", "nautilus"});
        std::filesystem::permissions(write(GetParam().program, kRecorder), std::filesystem::perms::owner_all);
        write(GetParam().file, "");
        EXPECT_EQ(create(m_program), err::ResultCode());
        EXPECT_EQ(asResult(helper().createShellLink(m_program.c_str(), "Kestrum", m_link.c_str())),
                  err::ResultCode());
    }

    ~AwkwardNames() override { EXPECT_FALSE(std::filesystem::exists(path("ran"))); }

    /// What stands between two marks in one of the user's files.
    [[nodiscard]] std::string between(const std::string& name, const std::string& begin,
                                      const char* end) const
    {
        const std::string text = bytes(name);
        const std::size_t at = text.find(begin) + begin.size();
        return text.substr(at, text.find(end, at) - at);
    }

    /// Runs a program in the file's folder, as file managers do.
    void run(std::vector<std::string> command) const
    {
        std::vector<char*> arguments;
        for (std::string& argument : command)
            arguments.push_back(argument.data());
        arguments.push_back(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            if (chdir(path("").c_str()) == 0)
                execvp(arguments[0], arguments.data());
            _exit(127);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << command.back();
    }

    /// Runs the command and waits for the program, which may run on when the tool that started it is gone.
    void expectArrivalBy(const std::vector<std::string>& command) const
    {
        run(command);
        EXPECT_TRUE(waitUntil([this] { return std::filesystem::exists(path("arguments")); })) << command[0];
        EXPECT_EQ(bytes("arguments"), m_file + '\0');
        std::filesystem::remove(path("arguments"));
    }

    const std::string m_program = path(GetParam().program).string();
    const std::string m_file = path(GetParam().file).string();
    const std::string m_fileInQuotes = '\'' + replaced(m_file, {{"'", "'\\''"}}) + '\'';
    const std::string m_link = path("data/Thunar/sendto/k.desktop").string();
};

TEST_P(AwkwardNames, ReachTheProgramFromTheSendToMenuAndTheServiceMenu)
{
    run({"desktop-file-validate", m_link});
    expectArrivalBy({"gio", "launch", m_link, m_file});
    // Only the frame differs from a desktop entry that can be launched on its own.
    const std::string exec = between("data/kio/servicemenus/" + m_id + ".desktop", "\nExec=", "\n");
    write("service.desktop", "[Desktop Entry]\nType=Application\nName=x\nExec=" + exec + '\n');
    expectArrivalBy({"gio", "launch", path("service.desktop").string(), m_file});
}

TEST_P(AwkwardNames, ReachTheProgramFromThunarAndNemo)
{
    const std::string action = between(m_actions, "<command>", "</command>");
    const std::string command = replaced(action, {{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}});
    expectArrivalBy({"/bin/sh", "-c", replaced(command, {{"%%", "%"}, {"%f", m_fileInQuotes}})});
    // Nemo has no shell in between; to split words in single quotes, one does the same.
    const std::string value = between("data/nemo/actions/" + m_id + ".nemo_action", "\nExec=", "\n");
    const std::string line = replaced(value, {{"\\\\", "\\"}, {"\\n", "\n"}, {"\\t", "\t"}});
    expectArrivalBy({"/bin/sh", "-c", replaced(line, {{"%%", "%"}, {"%F", m_fileInQuotes}})});
}

TEST_P(AwkwardNames, ReachTheProgramFromAScript)
{
    const std::string script = path("data/nautilus/scripts/Check").string();
    expectArrivalBy({script, m_file});
    expectArrivalBy({script, GetParam().file}); // a name in the folder that is shown
    setenv("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS", (m_file + '\n').c_str(), 1);
    expectArrivalBy({script, replaced(GetParam().file, {{"%", ""}})}); // as GNOME Files mangles it
    unsetenv("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS");
}

INSTANTIATE_TEST_SUITE_P(All, AwkwardNames, testing::ValuesIn(kNames),
                         [](const auto& names) { return std::to_string(names.index); });

} // namespace
} // namespace quillon::tests
