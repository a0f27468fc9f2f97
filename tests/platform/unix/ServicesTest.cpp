#include "platform/InputFile.h"
#include "support/OrdinaryUser.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>

namespace quillon::platform {
namespace {

namespace fs = std::filesystem;

TEST(InputFile, IsReadToItsEndUnderAnyNameAndAfterItsRemoval)
{
    const tests::TempFolder folder;
    const fs::path path = folder.write("line\nfeed \"'\\ \u00E4\u65E5\U0001F600", "some bytes");
    std::unique_ptr<InputFile> file;
    ASSERT_EQ(openInputFile(tests::wideName(path), file), err::ResultCode());
    fs::remove(path);
    EXPECT_EQ(file->size(), 10);
    char buffer[7];
    std::string bytes;
    errno = EIO; // of something before
    for (std::uint32_t got = 1; got > 0; bytes.append(buffer, got))
        ASSERT_EQ(file->read(buffer, sizeof buffer, got), err::ResultCode());
    EXPECT_EQ(bytes, "some bytes");
}

TEST(InputFile, WhatCannotBeReadAsAFileIsRefusedAtOnceWithTheReason)
{
    const tests::TempFolder folder;
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    fs::create_symlink("pipe", folder.file("link"));
    fs::create_symlink("loop", folder.file("loop"));
    fs::permissions(folder.write("secret", "x"), fs::perms::none);
    fs::permissions(folder.path(), fs::perms(0755));
    const std::pair<fs::path, int> rows[] = {
        {"/proc/self/mem", EIO}, // its first byte cannot be read
        {folder.path(), EISDIR},           {folder.file("pipe"), EOPNOTSUPP},
        {folder.file("link"), EOPNOTSUPP}, {"/dev/zero", EOPNOTSUPP},
        {"/proc/self/status", EOPNOTSUPP}, // has bytes and claims no size
        {folder.file("missing"), ENOENT},  {folder.file("secret") / "below", ENOTDIR},
        {folder.file("loop"), ELOOP},      {folder.file("secret"), EACCES}};
    alarm(60); // an open that waits for ever ends the program, as nothing else can
    for (const auto& [path, error] : rows) {
        const auto user = error == EACCES ? std::make_unique<tests::OrdinaryUser>() : nullptr;
        std::unique_ptr<InputFile> file;
        EXPECT_EQ(openInputFile(tests::wideName(path), file), err::systemError(error)) << path;
        EXPECT_FALSE(file);
    }
    alarm(0);
}

} // namespace
} // namespace quillon::platform
