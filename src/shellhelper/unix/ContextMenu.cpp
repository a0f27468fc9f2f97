// The entry for all files in every file manager that this user has.

#include "platform/unix/Posix.h"
#include "shellhelper/DesktopShell.h"
#include "shellhelper/unix/Entries.h"
#include "shellhelper/unix/Files.h"
#include "shellhelper/unix/UserActions.h"
#include "text/Unicode.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

namespace quillon::shellhelper {

using err::systemError;

namespace {

constexpr std::string_view kAllFiles = "*";
constexpr mode_t kDataMode = 0644;
constexpr mode_t kProgramMode = 0755;

// In bytes. Ours holds one path of at most 4096 bytes, quoted; what is longer is not read.
constexpr std::size_t kLongestScript = 32768;

/// A file manager with an entry in a file of its own, which our id names.
struct OwnFile
{
    const char* program;
    const char* folder; ///< in the data home; where it exists the file manager was here
    const char* place;  ///< of the file, in `folder`
    const char* ending;
    mode_t mode;
    std::string (*content)(const Entry&);
};

// KDE refuses to run an entry that is not executable.
constexpr std::array<OwnFile, 2> kOwnFiles{{
    {"dolphin", "/kio/servicemenus", "/", ".desktop", kProgramMode, serviceMenu},
    {"nemo", "/nemo", "/actions/", ".nemo_action", kDataMode, nemoAction},
}};

/// A file manager that shows the scripts in a folder by their names.
struct ScriptUser
{
    const char* program;
    std::string (*home)();
    const char* folder;
    const char* pathsVariable;
};

constexpr std::array<ScriptUser, 2> kScriptUsers{{
    {"nautilus", dataHome, "/nautilus", "NAUTILUS_SCRIPT_SELECTED_FILE_PATHS"},
    {"caja", configHome, "/caja", "CAJA_SCRIPT_SELECTED_FILE_PATHS"},
}};

bool isWanted(const std::string& program, const std::string& folder)
{
    return isFolder(folder) || !platform::findProgram(program).empty();
}

std::string ownFilePath(const OwnFile& file, const std::string& id)
{
    return dataHome() + file.folder + file.place + id + file.ending;
}

std::string scriptFolder(const ScriptUser& user)
{
    return user.home() + user.folder + "/scripts";
}

/// What no file's name can hold, and a percent sign, which is a code to GNOME Files, becomes its double.
std::string scriptName(const std::string& menuText)
{
    std::string name;
    for (const char c : menuText) {
        if (c == '/')
            name += "\u2215";
        else if (c == '%')
            name += "\uFF05";
        else
            name += c;
    }
    return name;
}

bool isSecondLine(const std::string& content, const std::string& line)
{
    const std::size_t firstEnd = content.find('\n');
    return firstEnd != std::string::npos && content.compare(firstEnd + 1, line.size(), line) == 0;
}

bool isOwnScript(const std::filesystem::directory_entry& file, const std::string& id)
{
    std::error_code error;
    std::string content;
    return file.is_regular_file(error) && file.file_size(error) < kLongestScript &&
           err::succeeded(readFile(file.path().string(), content)) && isSecondLine(content, scriptMark(id));
}

/// The names of our scripts in a folder: one, or more where somebody copied it.
std::vector<std::string> ownScripts(const std::string& folder, const std::string& id)
{
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator file(folder, error), end; !error && file != end;
         file.increment(error)) {
        if (isOwnScript(*file, id))
            names.push_back(file->path().filename().string());
    }
    return names;
}

err::ResultCode removeScripts(const std::string& folder, const std::string& id, const std::string& except)
{
    err::ResultCode result;
    for (const std::string& name : ownScripts(folder, id)) {
        if (name == except)
            continue;
        const err::ResultCode removed = removeFile(std::string(folder).append("/").append(name));
        result = err::succeeded(result) ? removed : result;
    }
    return result;
}

err::ResultCode createScript(const ScriptUser& user, const Entry& entry)
{
    const std::string folder = scriptFolder(user);
    const std::string name = scriptName(entry.menuText);
    const std::vector<std::string> own = ownScripts(folder, entry.id);
    const bool isOwn = std::ranges::find(own, name) != own.end();
    struct stat status = {};
    if (name.empty() || name == "." || name == "..")
        return systemError(EINVAL);
    if (!isOwn && lstat((folder + '/' + name).c_str(), &status) == 0)
        return systemError(EEXIST); // a script of the user's own
    const err::ResultCode written =
        writeFile(folder + '/' + name, fileScript(entry, user.pathsVariable), kProgramMode);
    return err::succeeded(written) ? removeScripts(folder, entry.id, name) : written;
}

/// The file of Thunar's actions, behind the link that some users have in its place.
std::string userActionsPath()
{
    const std::string path = configHome() + "/Thunar/uca.xml";
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(path, error);
    return error ? path : real.string();
}

/// A sum over a text, FNV-1a with 64 bits (Fowler, Noll and Vo), in hexadecimal digits.
std::string checksum(std::string_view text)
{
    std::uint64_t sum = 0xCBF29CE484222325U;
    for (const char c : text)
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(sum));
    return digits;
}

/// What a user without actions has: the system's, which Thunar does not read any more once the user has a
/// file.
std::string standardActions()
{
    std::string text;
    for (const std::string& folder : systemConfigFolders()) {
        if (err::succeeded(readFile(folder + "/Thunar/uca.xml", text)))
            return text;
    }
    return std::string(UserActions::kNoActions);
}

constexpr const char* kNoOrigin = "entry";

/// The word that our action carries: for a file that we made the sum of what we made it from, so that it can
/// go again where nobody else wrote in it.
std::string originOf(const UserActions& actions)
{
    const std::string sum = checksum(actions.withoutOwn());
    return actions.own().find(std::string(kMark) + ' ' + sum) != std::string::npos ? sum : kNoOrigin;
}

err::ResultCode createUserAction(const Entry& entry)
{
    const std::string path = userActionsPath();
    std::string text;
    FileState state;
    if (const err::ResultCode wasRead = readSharedFile(path, text, state); !err::succeeded(wasRead))
        return wasRead;
    const auto actions = UserActions::read(state.exists ? text : standardActions(), entry.id);
    if (!actions)
        return systemError(EILSEQ);
    const std::string origin = state.exists ? originOf(*actions) : checksum(actions->text());
    return writeSharedFile(path, actions->withOwn(thunarAction(entry, origin)), state);
}

/// The user's actions where ours is one of them.
std::optional<UserActions> actionsWithOwn(const std::string& path, const std::string& id, FileState& state)
{
    std::string text;
    // Nearly always the answer is known without a closer look.
    if (!err::succeeded(readSharedFile(path, text, state)) || text.find(id) == std::string::npos)
        return std::nullopt;
    auto actions = UserActions::read(text, id);
    return actions && actions->hasOwn() ? actions : std::nullopt;
}

err::ResultCode removeUserAction(const std::string& id)
{
    const std::string path = userActionsPath();
    FileState state;
    const auto actions = actionsWithOwn(path, id, state);
    if (!actions)
        return {};
    return originOf(*actions) != kNoOrigin ? removeSharedFile(path, state)
                                           : writeSharedFile(path, actions->withoutOwn(), state);
}

/// Adds up results: the first failure stays. Without any there is nobody to show the entry.
class Results
{
public:
    void add(const err::ResultCode& result)
    {
        m_isAny = true;
        if (err::succeeded(m_result))
            m_result = result;
    }

    [[nodiscard]] err::ResultCode result() const { return m_isAny ? m_result : systemError(ENOENT); }

private:
    bool m_isAny = false;
    err::ResultCode m_result;
};

err::ResultCode createEverywhere(const Entry& entry)
{
    Results results;
    for (const OwnFile& file : kOwnFiles) {
        if (isWanted(file.program, dataHome() + file.folder))
            results.add(writeFile(ownFilePath(file, entry.id), file.content(entry), file.mode));
    }
    for (const ScriptUser& user : kScriptUsers) {
        if (isWanted(user.program, user.home() + user.folder))
            results.add(createScript(user, entry));
    }
    if (isWanted("thunar", configHome() + "/Thunar"))
        results.add(createUserAction(entry));
    return results.result();
}

bool hasHome()
{
    return !dataHome().empty() && !configHome().empty();
}

} // namespace

err::ResultCode contextMenuExists(const NativeText& fileType, const NativeText& id)
{
    if (fileType != kAllFiles || !hasHome())
        return systemError(ENOENT);
    const auto isThere = [&id](const OwnFile& file) {
        struct stat status = {};
        return lstat(ownFilePath(file, id).c_str(), &status) == 0;
    };
    const auto hasScript = [&id](const ScriptUser& user) {
        return !ownScripts(scriptFolder(user), id).empty();
    };
    FileState state;
    const bool exists = std::ranges::any_of(kOwnFiles, isThere) ||
                        actionsWithOwn(userActionsPath(), id, state) ||
                        std::ranges::any_of(kScriptUsers, hasScript);
    return exists ? err::ResultCode{} : systemError(ENOENT);
}

err::ResultCode createContextMenu(const NativeText& fileType, const NativeText& menuText,
                                  const NativeText& command, const NativeText& id)
{
    if (fileType != kAllFiles)
        return notImplemented();
    const Entry entry{menuText, programOfCommand(command), id};
    if (entry.program.empty())
        return systemError(EINVAL);
    // All these files are UTF-8, so another name cannot stand in them.
    if (!text::isUtf8(menuText + entry.program + id))
        return systemError(EILSEQ);
    return hasHome() ? createEverywhere(entry) : systemError(ENOENT);
}

err::ResultCode removeContextMenu(const NativeText& fileType, const NativeText& id)
{
    if (fileType != kAllFiles || !hasHome())
        return {};
    Results results;
    for (const OwnFile& file : kOwnFiles)
        results.add(removeFile(ownFilePath(file, id)));
    for (const ScriptUser& user : kScriptUsers)
        results.add(removeScripts(scriptFolder(user), id, {}));
    results.add(removeUserAction(id));
    return results.result();
}

} // namespace quillon::shellhelper
