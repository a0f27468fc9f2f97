#include "platform/InputFile.h"

#include "support/OrdinaryUser.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

namespace quillon::platform {
namespace {

namespace fs = std::filesystem;

constexpr err::ResultCode systemError(int number)
{
    return {err::kGroupSystem, static_cast<std::uint32_t>(number)};
}

/// Ends the whole program where an open waits for ever, as nothing else can.
class HangGuard
{
public:
    HangGuard() { alarm(60); }
    HangGuard(const HangGuard&) = delete;
    HangGuard& operator=(const HangGuard&) = delete;
    ~HangGuard() { alarm(0); }
};

err::ResultCode openResult(const fs::path& path)
{
    const HangGuard guard;
    std::unique_ptr<InputFile> file;
    const err::ResultCode result = openInputFile(tests::wideName(path), file);
    EXPECT_EQ(file != nullptr, err::succeeded(result));
    return result;
}

std::string readAll(InputFile& file)
{
    std::string bytes;
    char buffer[7];
    std::uint32_t bytesRead = 0;
    while (err::succeeded(file.read(buffer, sizeof buffer, bytesRead)) && bytesRead > 0)
        bytes.append(buffer, bytesRead);
    return bytes;
}

void makeSocket(const fs::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    const int socketHandle = socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(bind(socketHandle, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(socketHandle);
}

TEST(InputFile, FilesWithAnyNameAreReadToTheirEnd)
{
    const tests::TempFolder folder;
    const std::string names[] = {"plain",      "with blanks",        "\"quoted\" 'twice'",
                                 "line\nfeed", "\u00E4\u00F6\u00FC", "\u65E5\u672C\u8A9E",
                                 "\U0001F600", std::string(255, 'x')};
    for (const std::string& name : names) {
        std::unique_ptr<InputFile> file;
        ASSERT_EQ(openInputFile(tests::wideName(folder.write(name, "some bytes of it")), file),
                  err::ResultCode{})
            << name;
        EXPECT_EQ(file->size(), 16);
        EXPECT_EQ(readAll(*file), "some bytes of it");
    }
}

TEST(InputFile, WhatCannotBeReadAsAFileIsRefusedAtOnceWithTheReason)
{
    const tests::TempFolder folder;
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    makeSocket(folder.file("socket"));
    fs::create_symlink("pipe", folder.file("link"));
    fs::create_symlink("loop", folder.file("loop"));
    fs::permissions(folder.write("secret", "x"), fs::perms::none);
    fs::permissions(folder.path(), fs::perms(0755));
    EXPECT_EQ(openResult("/proc/self/mem"), systemError(EIO)) << "its first byte cannot be read";
    const tests::OrdinaryUser user;
    const std::pair<fs::path, int> rows[] = {
        {folder.path(), EISDIR},
        {folder.file("pipe"), EOPNOTSUPP},
        {folder.file("link"), EOPNOTSUPP},
        {folder.file("socket"), EOPNOTSUPP},
        {"/dev/zero", EOPNOTSUPP},
        {"/dev/null", EOPNOTSUPP},
        {"/dev/tty", EOPNOTSUPP},
        {"/proc/self/status", EOPNOTSUPP}, // has bytes and claims no size
        {"", ENOENT},
        {folder.file("missing"), ENOENT},
        {folder.file("secret") / "below", ENOTDIR},
        {folder.file(std::string(256, 'x')), ENAMETOOLONG},
        {std::string(5000, '/') + "etc", ENAMETOOLONG},
        {folder.file("loop"), ELOOP},
        {folder.file("secret"), EACCES}};
    for (const auto& [path, error] : rows)
        EXPECT_EQ(openResult(path), systemError(error)) << path;
}

} // namespace
} // namespace quillon::platform
