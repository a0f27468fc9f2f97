// What the system makes of names and of other holders of a file. The test writes on the drive of the
// temporary folder, as a user's files lie.

#include "platform/InputFile.h"

#include "err/ResultCode.h"
#include "support/TempFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace quillon::platform {
namespace {

using err::ResultCode;
using tests::TempFolder;
using tests::wideName;

constexpr char kContent[] = "contents";

ResultCode systemError(DWORD code)
{
    return {err::kGroupSystem, code};
}

std::string contentOf(const std::wstring& name)
{
    std::unique_ptr<InputFile> file;
    if (const ResultCode opened = openInputFile(name, file); !err::succeeded(opened))
        return "error " + std::to_string(opened.code);
    std::string bytes(static_cast<std::size_t>(file->size()), '\0');
    std::uint32_t got = 0;
    const ResultCode read = file->read(bytes.data(), static_cast<std::uint32_t>(bytes.size()), got);
    return err::succeeded(read) && got == bytes.size() ? bytes : "a failed read";
}

/// Another program that holds the file open.
class Holder
{
public:
    Holder(const std::wstring& name, DWORD access, DWORD sharing)
        : m_handle(CreateFileW(name.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr))
    {
    }
    ~Holder() { CloseHandle(m_handle); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    [[nodiscard]] bool holds() const { return m_handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_handle;
};

TEST(InputFile, OpensAFileUnderEveryFormOfItsName)
{
    const TempFolder folder;
    const std::wstring name =
        wideName(folder.write("r\xC3\xA9sum\xC3\xA9 \xE6\x96\x87\xE5\xAD\x97 & 'x'.txt", kContent));
    std::wstring backward = name;
    std::ranges::replace(backward, L'/', L'\\');
    std::wstring forward = name;
    std::ranges::replace(forward, L'\\', L'/');
    EXPECT_EQ(contentOf(backward), kContent);
    EXPECT_EQ(contentOf(forward), kContent);
    EXPECT_EQ(contentOf(L"\\\\?\\" + backward), kContent);
    ASSERT_EQ(backward.at(1), L':');
    std::wstring otherCase = backward;
    otherCase[0] = static_cast<wchar_t>(otherCase[0] ^ 0x20);
    EXPECT_EQ(contentOf(otherCase), kContent) << "the drive's letter in the other case";
}

TEST(InputFile, ReportsTheSystemsErrorForWhatCannotBeOpened)
{
    const TempFolder folder;
    std::unique_ptr<InputFile> file;
    EXPECT_EQ(openInputFile(wideName(folder.file("missing")), file), systemError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(openInputFile(wideName(folder.file("missing/deeper")), file),
              systemError(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(openInputFile(wideName(folder.path()), file), systemError(ERROR_ACCESS_DENIED)) << "a folder";
    EXPECT_FALSE(err::succeeded(openInputFile(L"\\\\no-such-server\\share\\file", file)));
    EXPECT_FALSE(err::succeeded(openInputFile(wideName(folder.file("a*b")), file)));
    EXPECT_FALSE(file);
}

TEST(InputFile, SharesWithAWriterAndIsRefusedByAnExclusiveHolder)
{
    const TempFolder folder;
    const std::wstring name = wideName(folder.write("held", kContent));
    {
        const Holder writer(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
        ASSERT_TRUE(writer.holds());
        EXPECT_EQ(contentOf(name), kContent);
    }
    const Holder exclusive(name, GENERIC_READ, 0);
    ASSERT_TRUE(exclusive.holds());
    std::unique_ptr<InputFile> file;
    EXPECT_EQ(openInputFile(name, file), systemError(ERROR_SHARING_VIOLATION));
}

TEST(InputFile, CannotBeDeletedWhileItIsOpen)
{
    const TempFolder folder;
    const std::wstring name = wideName(folder.write("held", kContent));
    std::unique_ptr<InputFile> file;
    ASSERT_TRUE(err::succeeded(openInputFile(name, file)));
    EXPECT_FALSE(DeleteFileW(name.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    file.reset();
    EXPECT_TRUE(DeleteFileW(name.c_str()));
}

TEST(InputFile, AFileCutWhileItIsOpenDeliversReadsOfNothing)
{
    const TempFolder folder;
    const auto path = folder.write("cut", kContent);
    std::unique_ptr<InputFile> file;
    ASSERT_TRUE(err::succeeded(openInputFile(wideName(path), file)));
    std::filesystem::resize_file(path, 0);
    char byte = 0;
    std::uint32_t got = 1;
    EXPECT_EQ(file->size(), static_cast<std::int64_t>(std::size(kContent) - 1));
    EXPECT_EQ(file->read(&byte, 1, got), ResultCode());
    EXPECT_EQ(got, 0U);
}

TEST(InputFile, AnEmptyFileOpensWithSizeNull)
{
    const TempFolder folder;
    std::unique_ptr<InputFile> file;
    ASSERT_TRUE(err::succeeded(openInputFile(wideName(folder.write("empty", "")), file)));
    EXPECT_EQ(file->size(), 0);
}

} // namespace
} // namespace quillon::platform
