#include "file/Paths.h"
#include "file/Words.h"
#include "support/CaseTable.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace quillon::file {
namespace {

namespace fs = std::filesystem;

/// A path of the table, in which "." in front is the current folder.
std::string here(std::string path)
{
    return path.starts_with('.') ? path.replace(0, 1, tests::utf8Name(fs::current_path())) : path;
}

TEST(PathsAndWords, AreJudgedAndChangedAsTheTableSays)
{
    const std::map<std::string, std::function<std::string(const std::string&, const std::string&)>> functions{
        {"absolute", [](auto& path, auto&) { return std::to_string(isAbsolutePath(path)); }},
        {"join", joinPath},
        {"full", [](auto& base, auto& name) { return absolutePath(here(base), name); }},
        {"folder", [](auto& path, auto&) { return getFolder(path); }},
        {"on", [](auto& word, auto&) { return std::to_string(isBoolWord(tests::wideName(word), true)); }},
        {"off", [](auto& word, auto&) { return std::to_string(isBoolWord(tests::wideName(word), false)); }},
    };
    for (const tests::CaseRow& row : tests::readCaseTable("file/paths-and-words.txt")) {
        std::string answer = row[3] == "?" ? std::to_string(fs::path("/x").is_absolute()) : here(row[3]);
        std::ranges::replace(answer, '^', static_cast<char>(fs::path::preferred_separator));
        EXPECT_EQ(functions.at(row[0])(row[1], row[2]), answer) << row[0] << ' ' << row[1] << ' ' << row[2];
    }
}

} // namespace
} // namespace quillon::file
