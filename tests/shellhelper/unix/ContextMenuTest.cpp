#include "shellhelper/unix/Desktop.h"
#include "support/Wait.h"

#include <sys/stat.h>

#include <cerrno>
#include <sstream>

namespace quillon::tests {
namespace {

using err::systemError;

using ContextMenu = Desktop;
using SendToLink = Desktop;
using Folders = Desktop;

constexpr err::ResultCode kSuccess;

TEST_F(ContextMenu, StandsInEveryInstalledFileManagerUntilItIsRemoved)
{
    install({"dolphin", "thunar", "nemo", "nautilus", "caja"});
    EXPECT_EQ(exists(), systemError(ENOENT));
    ASSERT_EQ(create(), kSuccess);
    EXPECT_EQ(exists(), kSuccess);
    // As after a change of language, and with all that a format might take for its own.
    for (int i = 0; i < 2; ++i)
        ASSERT_EQ(create(R"(/opt/50% "k" 'k' $k \)", L" \u0414\u0430/<&%\\"), kSuccess);
    const std::filesystem::path link = path("data/Thunar/sendto/k.desktop");
    ASSERT_EQ(asResult(helper().createShellLink("/opt/50% k", " A & B", link.c_str())), kSuccess);
    std::ostringstream written;
    for (const auto& [name, content] : files()) {
        struct stat status = {};
        EXPECT_EQ(stat(path(name).c_str(), &status), 0);
        written << "### " << name << ' ' << std::oct << (status.st_mode & 07777) << '\n' << content;
    }
    std::ifstream expected(KESTRUM_TEST_DATA "/shellhelper/unix/entries.txt", std::ios::binary);
    EXPECT_EQ(written.str(), std::string(std::istreambuf_iterator<char>(expected), {}));
    std::filesystem::remove(link);
    EXPECT_EQ(remove(), kSuccess);
    EXPECT_TRUE(files().empty());
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

TEST_F(ContextMenu, IsNotWrittenAgainWhileItIsRight)
{
    install({"dolphin", "thunar", "nemo", "nautilus"});
    ASSERT_EQ(create(), kSuccess);
    const auto before = files();
    for (const auto& [name, content] : before)
        std::filesystem::create_hard_link(path(name),
                                          path("bin") / std::to_string(std::hash<std::string>()(name)));
    ASSERT_EQ(create(), kSuccess);
    for (const auto& [name, content] : before)
        EXPECT_EQ(std::filesystem::hard_link_count(path(name)), 2U) << name << " is another file";
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
    const err::ResultCode invalidArgument{5, 5};
    struct Row
    {
        const char* fileType;
        const char* command;
        const char* id;
        err::ResultCode result;
    };
    const Row rows[] = {{"*", "", "id", systemError(EINVAL)},
                        {"*", "\"/p\"", "id", systemError(EINVAL)},
                        {"*", "\"/p\" \"%L\" x", "id", systemError(EINVAL)},
                        {"*", "\"/p \"%L\"", "id", systemError(EINVAL)},
                        {"*", "p \"%L\"", "id", systemError(EINVAL)},
                        {"*", "\"/p%L\" \"%L\"", "id", systemError(EINVAL)},
                        {"*", "\"/p\\", "id", systemError(EINVAL)},
                        {"*", "\"/p\" \"%L", "id", systemError(EINVAL)},
                        {"*", "\"/\xFF\" %L", "id", systemError(EILSEQ)},
                        {"Directory", "/p %L", "id", systemError(ENOSYS)},
                        {"*", "/p %L", "../id", invalidArgument},
                        {"*", "/p %L", "i\n", invalidArgument},
                        {"*", "/p %L", "", invalidArgument},
                        {"*", "/p %L", nullptr, invalidArgument}};
    for (const auto& [fileType, command, id, result] : rows)
        EXPECT_EQ(asResult(helper().createShellContextMenuForUser(fileType, "Check", command, id)), result)
            << command;
    EXPECT_TRUE(files().empty());
}

TEST_F(SendToLink, IsMadeOnlyWhereThunarOrTheFolderIs)
{
    const std::string link = path("data/Thunar/sendto/x.desktop").string();
    EXPECT_EQ(asResult(helper().createShellLink("/opt/k", "Kestrum", link.c_str())), systemError(ENOENT));
    install({"thunar"});
    EXPECT_EQ(asResult(helper().createShellLink("/opt/k", "Kestrum", link.c_str())), kSuccess);
    EXPECT_TRUE(std::filesystem::exists(link));
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
