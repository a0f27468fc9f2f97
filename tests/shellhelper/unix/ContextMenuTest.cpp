#include "shellhelper/unix/Desktop.h"

#include <sys/stat.h>

#include <cerrno>

namespace quillon::tests {
namespace {

using ContextMenu = Desktop;
using SendToLink = Desktop;

constexpr err::ResultCode kSuccess;

err::ResultCode systemError(int code)
{
    return {err::kGroupSystem, static_cast<std::uint32_t>(code)};
}

ino_t inode(const std::filesystem::path& file)
{
    struct stat status = {};
    return lstat(file.c_str(), &status) == 0 ? status.st_ino : 0;
}

TEST_F(ContextMenu, StandsInEveryInstalledFileManagerUntilItIsRemoved)
{
    install({"dolphin", "thunar", "nemo", "nautilus", "caja"});
    const auto before = files();
    EXPECT_EQ(exists(), systemError(ENOENT));
    EXPECT_EQ(create(), kSuccess);
    EXPECT_EQ(exists(), kSuccess);
    const std::map<std::string, mode_t> expected{{m_serviceMenu, 0755},
                                                 {m_actions, 0644},
                                                 {m_nemoAction, 0644},
                                                 {"data/nautilus/scripts/Check", 0755},
                                                 {"config/caja/scripts/Check", 0755}};
    EXPECT_EQ(files().size(), before.size() + expected.size());
    for (const auto& [name, mode] : expected) {
        struct stat status = {};
        EXPECT_EQ(stat(path(name).c_str(), &status), 0) << name;
        EXPECT_EQ(status.st_mode & 07777, mode) << name;
    }
    EXPECT_EQ(remove(), kSuccess);
    EXPECT_EQ(files(), before);
    EXPECT_EQ(remove(), kSuccess);
}

TEST_F(ContextMenu, IsWrittenOnlyWhereTheFileManagerOrItsFolderIs)
{
    EXPECT_EQ(create(), systemError(ENOENT));
    EXPECT_TRUE(files().empty());
    std::filesystem::create_directories(path("data/nemo"));
    EXPECT_EQ(create(), kSuccess);
    EXPECT_EQ(files().size(), 1U);
}

TEST_F(ContextMenu, IsNotWrittenAgainWhileItIsRight)
{
    install({"dolphin", "thunar", "nemo", "nautilus"});
    ASSERT_EQ(create(), kSuccess);
    std::map<std::string, ino_t> inodes;
    for (const auto& [name, bytes] : files())
        inodes[name] = inode(path(name));
    ASSERT_EQ(create(), kSuccess);
    for (const auto& [name, number] : inodes)
        EXPECT_EQ(inode(path(name)), number) << name;
}

TEST_F(ContextMenu, TakesTheNewTextEverywhereAndKeepsNoOldScript)
{
    install({"dolphin", "thunar", "nemo", "nautilus"});
    ASSERT_EQ(create(), kSuccess);
    const std::size_t count = files().size();
    ASSERT_EQ(create("/opt/k/kestrum", L"\u0414\u0430/<&%"), kSuccess);
    EXPECT_EQ(files().size(), count);
    EXPECT_TRUE(std::filesystem::exists(path("data/nautilus/scripts/\u0414\u0430\u2215<&\uFF05")));
    EXPECT_NE(bytes(path(m_serviceMenu)).find("\nName=\u0414\u0430/<&%\n"), std::string::npos);
    EXPECT_NE(bytes(path(m_nemoAction)).find("\nName=\u0414\u0430/<&%%\n"), std::string::npos);
    EXPECT_NE(bytes(path(m_actions)).find("<name>\u0414\u0430/&lt;&amp;%</name>"), std::string::npos);
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
    const std::pair<const wchar_t*, int> commands[] = {{L"", EINVAL},
                                                       {L"\"/p\"", EINVAL},
                                                       {L"\"/p\" \"%L\" x", EINVAL},
                                                       {L"\"/p \"%L\"", EINVAL},
                                                       {L"p \"%L\"", EINVAL},
                                                       {L"\"/p%L\" \"%L\"", EINVAL},
                                                       {L"\"/p\\", EINVAL},
                                                       {L"\"/p\" \"%L", EINVAL}};
    for (const auto& [command, error] : commands)
        EXPECT_EQ(asResult(helper().createShellContextMenuForUserW(L"*", L"Check", command, kId)),
                  systemError(error))
            << text::utf8FromWide(command);
    EXPECT_EQ(asResult(helper().createShellContextMenuForUser("*", "Check", "\"/\xFF\" %L", "id")),
              systemError(EILSEQ));
    EXPECT_EQ(asResult(helper().createShellContextMenuForUser("Directory", "Check", "/p %L", "id")),
              systemError(ENOSYS));
    const err::ResultCode invalid{err::kGroupProgram, 5};
    EXPECT_EQ(asResult(helper().createShellContextMenuForUser("*", "Check", "/p %L", "../id")), invalid);
    EXPECT_EQ(asResult(helper().createShellContextMenuForUser("*", "Check", "/p %L", nullptr)), invalid);
    EXPECT_EQ(files().size(), 1U);
}

TEST_F(SendToLink, IsMadeOnlyWhereThunarOrTheFolderIs)
{
    const std::string link = path("data/Thunar/sendto/x.desktop").string();
    EXPECT_EQ(asResult(helper().createShellLink("/opt/k", "Kestrum", link.c_str())), systemError(ENOENT));
    install({"thunar"});
    EXPECT_EQ(asResult(helper().createShellLink("/opt/k", "Kestrum", link.c_str())), kSuccess);
    EXPECT_TRUE(std::filesystem::exists(link));
}

TEST_F(Desktop, OpensFoldersAndNothingElse)
{
    EXPECT_EQ(asResult(helper().openDir(path("bin/none").c_str())), systemError(ENOTDIR));
    EXPECT_EQ(asResult(helper().openDir(path("bin").c_str())), systemError(ENOENT)); // no opener
    EXPECT_EQ(asResult(helper().openDirAndSelectItem(path("bin").c_str())), systemError(ENOSYS));
    EXPECT_EQ(asResult(helper().deleteDir(path("bin").c_str())), systemError(ENOSYS));
    EXPECT_TRUE(std::filesystem::exists(path("bin")));
}

} // namespace
} // namespace quillon::tests
