// Each entry is run as its file manager does it, by the real tool where there is one, and the program that it
// starts tells what it got.

#include "shellhelper/unix/Desktop.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>
#include <vector>

namespace quillon::tests {
namespace {

using namespace std::string_literals;

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

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// What stands between two marks.
std::string between(const std::string& text, const std::string& begin, const std::string& end)
{
    const std::size_t at = text.find(begin) + begin.size();
    return text.substr(at, text.find(end, at) - at);
}

/// Both Thunar and Nemo put the path into single quotes; the codes are read from left to right, once.
std::string expanded(const std::string& command, char code, const std::string& file)
{
    std::string result;
    for (std::size_t i = 0; i < command.size(); ++i) {
        if (command[i] != '%')
            result += command[i];
        else if (command[++i] == code)
            result += '\'' + replaced(file, "'", "'\\''") + '\'';
        else
            result += command[i];
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
        std::filesystem::copy_file(KESTRUM_RECORDER, path(GetParam().program));
        write(GetParam().file, "");
        std::string quoted = replaced(m_program, "\\", "\\\\");
        quoted = replaced(replaced(quoted, "\"", "\\\""), "%", "%%");
        EXPECT_EQ(create(quoted), err::ResultCode{});
        EXPECT_EQ(asResult(helper().createShellLink(m_program.c_str(), "Kestrum", m_link.c_str())),
                  err::ResultCode{});
    }

    ~AwkwardNames() override { EXPECT_FALSE(std::filesystem::exists(path("ran"))); }

    /// Runs a program in the file's folder, as file managers do.
    void run(const std::vector<std::string>& command) const
    {
        std::vector<char*> arguments;
        for (const std::string& argument : command)
            arguments.push_back(const_cast<char*>(argument.c_str()));
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

    /// The program may run on when the tool that started it is gone.
    void expectFileArrived() const
    {
        const std::filesystem::path record = path("arguments");
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!std::filesystem::exists(record) && std::chrono::steady_clock::now() < limit)
            std::this_thread::yield();
        EXPECT_EQ(bytes(record), m_file + '\0');
    }

    const std::string m_program = path(GetParam().program).string();
    const std::string m_file = path(GetParam().file).string();
    const std::string m_link = path("data/Thunar/sendto/k.desktop").string();
};

TEST_P(AwkwardNames, ReachTheProgramFromTheSendToMenu)
{
    run({"desktop-file-validate", m_link});
    run({"gio", "launch", m_link, m_file});
    expectFileArrived();
}

TEST_P(AwkwardNames, ReachTheProgramFromTheServiceMenu)
{
    // Only the frame differs from a desktop entry that can be launched on its own.
    const std::string exec = between(bytes(path(m_serviceMenu)), "\nExec=", "\n");
    write("service.desktop", "[Desktop Entry]\nType=Application\nName=x\nExec=" + exec + '\n');
    run({"gio", "launch", path("service.desktop").string(), m_file});
    expectFileArrived();
}

TEST_P(AwkwardNames, ReachTheProgramFromThunar)
{
    std::string command = between(bytes(path(m_actions)), "<command>", "</command>");
    command = replaced(replaced(command, "&lt;", "<"), "&gt;", ">");
    run({"/bin/sh", "-c", expanded(replaced(command, "&amp;", "&"), 'f', m_file)});
    expectFileArrived();
}

TEST_P(AwkwardNames, ReachTheProgramFromNemo)
{
    const std::string value = between(bytes(path(m_nemoAction)), "\nExec=", "\n");
    std::string command;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == '\\';
        i += isEscape ? 1 : 0;
        command += isEscape && value[i] == 'n' ? '\n' : isEscape && value[i] == 't' ? '\t' : value[i];
    }
    // Nemo has no shell in between; to split words in single quotes, one does the same.
    run({"/bin/sh", "-c", expanded(command, 'F', m_file)});
    expectFileArrived();
}

TEST_P(AwkwardNames, ReachTheProgramFromAScript)
{
    const std::string script = path("data/nautilus/scripts/Check").string();
    run({script, m_file});
    expectFileArrived();
    std::filesystem::remove(path("arguments"));
    run({script, GetParam().file}); // a name in the folder that is shown
    expectFileArrived();
    std::filesystem::remove(path("arguments"));
    setenv("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS", (m_file + '\n').c_str(), 1);
    run({script, replaced(GetParam().file, "%", "")}); // as GNOME Files mangles it
    unsetenv("NAUTILUS_SCRIPT_SELECTED_FILE_PATHS");
    expectFileArrived();
}

INSTANTIATE_TEST_SUITE_P(All, AwkwardNames, testing::ValuesIn(kNames),
                         [](const auto& names) { return std::to_string(names.index); });

} // namespace
} // namespace quillon::tests
