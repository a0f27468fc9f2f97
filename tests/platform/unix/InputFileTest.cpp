#include "platform/InputFile.h"

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

/// Takes the rights of the superuser away for a while, as that one may read everything.
class OrdinaryUser
{
public:
    OrdinaryUser()
        : m_former(geteuid())
    {
        if (m_former == 0)
            static_cast<void>(seteuid(65534));
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() { static_cast<void>(seteuid(m_former)); }

private:
    uid_t m_former;
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

TEST(InputFile, AnEmptyFileOpens)
{
    const tests::TempFolder folder;
    std::unique_ptr<InputFile> file;
    ASSERT_EQ(openInputFile(tests::wideName(folder.write("empty", "")), file), err::ResultCode{});
    EXPECT_EQ(file->size(), 0);
    EXPECT_EQ(readAll(*file), "");
}

TEST(InputFile, ASizeBeyondFourGibibytesIsExact)
{
    const tests::TempFolder folder;
    const fs::path path = folder.write("large", "");
    fs::resize_file(path, (std::uintmax_t{5} << 30) + 1);
    std::unique_ptr<InputFile> file;
    ASSERT_EQ(openInputFile(tests::wideName(path), file), err::ResultCode{});
    EXPECT_EQ(file->size(), (std::int64_t{5} << 30) + 1);
}

TEST(InputFile, WhatIsNotAFileOfBytesIsRefusedAtOnce)
{
    const tests::TempFolder folder;
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    makeSocket(folder.file("socket"));
    fs::create_symlink("pipe", folder.file("link"));
    EXPECT_EQ(openResult(folder.path()), systemError(EISDIR));
    EXPECT_EQ(openResult(folder.file("pipe")), systemError(EOPNOTSUPP));
    EXPECT_EQ(openResult(folder.file("link")), systemError(EOPNOTSUPP));
    EXPECT_EQ(openResult(folder.file("socket")), systemError(EOPNOTSUPP));
    EXPECT_EQ(openResult("/dev/zero"), systemError(EOPNOTSUPP));
    EXPECT_EQ(openResult("/dev/null"), systemError(EOPNOTSUPP));
    EXPECT_EQ(openResult("/dev/tty"), systemError(EOPNOTSUPP));
}

TEST(InputFile, AFileThatClaimsNoSizeAndHasBytesIsRefused)
{
    EXPECT_EQ(openResult("/proc/self/status"), systemError(EOPNOTSUPP));
}

TEST(InputFile, AFileWhoseFirstByteCannotBeReadIsRefusedWithTheReason)
{
    EXPECT_EQ(openResult("/proc/self/mem"), systemError(EIO));
}

TEST(InputFile, WhatCannotBeFoundIsRefusedWithTheReason)
{
    const tests::TempFolder folder;
    folder.write("file", "x");
    fs::create_symlink("loop", folder.file("loop"));
    EXPECT_EQ(openResult(""), systemError(ENOENT));
    EXPECT_EQ(openResult(folder.file("missing")), systemError(ENOENT));
    EXPECT_EQ(openResult(folder.file("file") / "below"), systemError(ENOTDIR));
    EXPECT_EQ(openResult(folder.file(std::string(256, 'x'))), systemError(ENAMETOOLONG));
    EXPECT_EQ(openResult(std::string(5000, '/') + "etc"), systemError(ENAMETOOLONG));
    EXPECT_EQ(openResult(folder.file("loop")), systemError(ELOOP));
}

TEST(InputFile, AnUnreadableFileIsRefusedWithTheReason)
{
    const tests::TempFolder folder;
    const fs::path path = folder.write("secret", "x");
    fs::permissions(path, fs::perms::none);
    const OrdinaryUser user;
    if (geteuid() == 0)
        GTEST_SKIP() << "the superuser reads everything, and his rights cannot be taken away here";
    EXPECT_EQ(openResult(path), systemError(EACCES));
}

TEST(InputFile, AFileRemovedAfterItsOpenIsReadToItsEnd)
{
    const tests::TempFolder folder;
    const fs::path path = folder.write("short-lived", "still here");
    std::unique_ptr<InputFile> file;
    ASSERT_EQ(openInputFile(tests::wideName(path), file), err::ResultCode{});
    fs::remove(path);
    EXPECT_EQ(readAll(*file), "still here");
}

TEST(InputFile, AReadThatTheSystemRefusesLeavesTheByteCountAlone)
{
    const tests::TempFolder folder;
    std::unique_ptr<InputFile> file;
    ASSERT_EQ(openInputFile(tests::wideName(folder.write("file", "x")), file), err::ResultCode{});
    std::uint32_t bytesRead = 77;
    EXPECT_EQ(file->read(nullptr, 1, bytesRead), systemError(EFAULT));
    EXPECT_EQ(bytesRead, 77U);
}

} // namespace
} // namespace quillon::platform
