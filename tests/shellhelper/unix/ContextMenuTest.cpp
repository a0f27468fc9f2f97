#include "shellhelper/unix/Desktop.h"
#include "support/CaseTable.h"
#include "support/Wait.h"

#include <cerrno>

namespace quillon::tests {
namespace {

using err::systemError;

using ContextMenu = Desktop;
using Folders = Desktop;

TEST_F(ContextMenu, StandsInEveryInstalledFileManagerUntilItIsRemoved)
{
    const std::string link = path("data/Thunar/sendto/k.desktop").string();
    const auto makeAll = [&link](const std::string& program, const wchar_t* text) {
        EXPECT_EQ(create(program, text), kSuccess);
        return asResult(helper().createShellLink("/opt/50% k", " A & B", link.c_str()));
    };
    EXPECT_EQ(asResult(helper().createShellLink("/opt/k", "k", link.c_str())), systemError(ENOENT));
    install({"dolphin", "thunar", "nemo", "nautilus", "caja"});
    EXPECT_EQ(exists(), systemError(ENOENT));
    EXPECT_EQ(makeAll("/opt/k", L"a"), kSuccess);
    // As after a change of language, and with all that a format might take for its own.
    EXPECT_EQ(makeAll(R"(/opt/50% "k" 'k' $k \)", L" \u0414\u0430/<&%\\"), kSuccess);
    EXPECT_EQ(exists(), kSuccess);
    std::ostringstream written;
    const std::filesystem::file_time_type longAgo{};
    for (const auto& [name, content] : files()) {
        const auto mode = static_cast<unsigned>(std::filesystem::status(path(name)).permissions());
        written << "### " << name << ' ' << std::oct << mode << '\n' << content;
        std::filesystem::last_write_time(path(name), longAgo);
    }
    std::ifstream expected(KESTRUM_TEST_DATA "/shellhelper/unix/entries.txt", std::ios::binary);
    EXPECT_EQ(written.str(), std::string(std::istreambuf_iterator<char>(expected), {}));
    EXPECT_EQ(makeAll(R"(/opt/50% "k" 'k' $k \)", L" \u0414\u0430/<&%\\"), kSuccess);
    for (const auto& [name, content] : files())
        EXPECT_TRUE(std::filesystem::last_write_time(path(name)) == longAgo) << name << " is written again";
    EXPECT_EQ(remove(), kSuccess);
    EXPECT_EQ(files().size(), 1U) << "all but the link";
    EXPECT_EQ(exists(), systemError(ENOENT));
    EXPECT_EQ(remove(), kSuccess);
}

TEST_F(ContextMenu, IsWrittenOnlyWhereTheFileManagerOrItsFolderIs)
{
    EXPECT_EQ(create(), systemError(ENOENT));
    for (const char* folder :
         {"data/kio/servicemenus", "config/Thunar", "data/nemo", "data/nautilus", "config/caja"}) {
        std::filesystem::create_directories(path(folder));
        EXPECT_EQ(create(), kSuccess) << folder;
        EXPECT_EQ(exists(), kSuccess) << folder;
        EXPECT_EQ(files().size(), 1U) << folder;
        EXPECT_EQ(remove(), kSuccess) << folder;
        std::filesystem::remove_all(path(folder));
    }
}

TEST_F(ContextMenu, LeavesWhatTheUserOwnsAlone)
{
    install({"nautilus"});
    write("data/nautilus/scripts/Check", "#!/bin/sh\n");
    write("data/nautilus/scripts/Other", "#!/bin/sh\n# Made by X-Kestrum-Generated\n");
    const auto before = files();
    EXPECT_EQ(create(), systemError(EEXIST));
    EXPECT_EQ(remove(), kSuccess);
    EXPECT_EQ(files(), before);
}

TEST_F(ContextMenu, RefusesWhatItCannotMake)
{
    install({"nemo"});
    const auto create = helper().createShellContextMenuForUser;
    for (const CaseRow& row : readCaseTable("shellhelper/unix/commands.txt")) {
        const QxShellResult result = create(row[0].c_str(), "Check", row[1].c_str(), row[2].c_str());
        EXPECT_EQ(std::to_string(result.group) + '/' + std::to_string(result.code), row.at(3)) << row[1];
    }
    EXPECT_EQ(asResult(create("*", "Check", "/p %L", nullptr)), err::programError(err::kInvalidArgument));
    EXPECT_TRUE(files().empty());
}

TEST_F(Folders, AreShownByTheDesktopsOpenerAndNothingElseIs)
{
    const std::string folder = path("bin").string();
    EXPECT_EQ(asResult(helper().openDir(folder.c_str())), systemError(ENOENT)) << "no opener";
    install({"xdg-open"});
    write("bin/xdg-open", "#!/bin/sh\necho \"$*\" >\"$HOME/part\"\n/bin/mv \"$HOME/part\" \"$HOME/shown\"\n");
    EXPECT_EQ(asResult(helper().openDir(path("bin/none").c_str())), systemError(ENOTDIR));
    EXPECT_EQ(asResult(helper().openDirAndSelectItem(folder.c_str())), systemError(ENOSYS));
    EXPECT_EQ(asResult(helper().deleteDir(folder.c_str())), systemError(ENOSYS));
    EXPECT_EQ(asResult(helper().openDir(folder.c_str())), kSuccess);
    ASSERT_TRUE(waitUntil([this] { return std::filesystem::exists(path("shown")); }));
    EXPECT_EQ(bytes("shown"), folder + '\n');
}

} // namespace
} // namespace quillon::tests
