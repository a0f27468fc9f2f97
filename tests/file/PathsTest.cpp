#include "file/Paths.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quillon::file {
namespace {

const std::string kOwn(1, static_cast<char>(std::filesystem::path::preferred_separator));

TEST(IsAbsolutePath, IsTrueForADriveOrTwoSeparatorsBehindTheKnownPrefixesOnly)
{
    for (const char* path : {R"(C:\x)", "c:/x", "z:/", R"(\\srv\s)", "//srv", R"(\/srv)", "//?/C:/x",
                             R"(\\?\C:\x)", R"(\\?\unc\C:\x)", R"(\\?\UNC\\\srv)"})
        EXPECT_TRUE(isAbsolutePath(path)) << path;
    for (const char* path :
         {"", "C:", "C:x", "x", R"(x\y)", "1:/x", R"(\x)", R"(\\?\UNC\server\share)", R"(\\?\x)", "\xC3:/x"})
        EXPECT_FALSE(isAbsolutePath(path)) << path;
}

TEST(IsAbsolutePath, HoldsOneLeadingSlashForWhatTheSystemHoldsIt)
{
    const bool isAbsolute = std::filesystem::path("/x").is_absolute();
    EXPECT_EQ(isAbsolutePath("/"), isAbsolute);
    EXPECT_EQ(isAbsolutePath("/x/y"), isAbsolute);
    EXPECT_EQ(isAbsolutePath("//?/UNC/server/share"), isAbsolute);
}

TEST(JoinPath, LeavesOneSeparatorBetweenItsParts)
{
    const std::string cases[][3] = {
        {"a", "b", "a" + kOwn + "b"}, {"a/", "b", "a/b"},     {"a\\", "b", "a\\b"}, {"a/\\/", "b", "a/b"},
        {"a\\//", "b", "a\\b"},       {"//", "/\\b/", "/b/"}, {"", "b", "b"},       {"", "//b", "b"},
        {"a", "", "a" + kOwn},        {"a//", "\\/", "a/"},   {"/", "b", "/b"},     {"", "", ""},
    };
    for (const auto& [path, tail, expected] : cases)
        EXPECT_EQ(joinPath(path, tail), expected) << path << " and " << tail;
}

TEST(AbsolutePath, NormalisesWhatIsNotAbsolute)
{
    const std::string here = tests::utf8Name(std::filesystem::current_path());
    const std::string deep(300, 'd');
    const std::string cases[][3] = {
        {here, "x.tr", here + kOwn + "x.tr"},   {here, "./a//../\u00E4.tr", here + kOwn + "\u00E4.tr"},
        {"", "x.tr", here + kOwn + "x.tr"},     {here, deep + "/" + deep, here + kOwn + deep + kOwn + deep},
        {here, "C:/a/../x.tr", "C:/a/../x.tr"}, {"", "", ""},
    };
    for (const auto& [base, name, expected] : cases)
        EXPECT_EQ(absolutePath(base, name), expected) << base << " and " << name;
}

TEST(GetFolder, IsThePathWithoutTheName)
{
    const std::string endless(5000, 'x');
    const std::string cases[][2] = {
        {R"(C:\a\b.txt)", R"(C:\a\)"},
        {"/a/b", "/a/"},
        {"/b", "/"},
        {"a/b\\c", "a/b\\"},
        {"a/", "a/"},
        {"C:b.txt", "C:"},
        {"b.txt", ""},
        {"", ""},
        {endless + "/x", endless + "/"},
    };
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(getFolder(path), expected) << path;
}

} // namespace
} // namespace quillon::file
