// What the system makes of names and of other holders of a file.

#include "platform/InputFile.h"

#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace quillon::platform {
namespace {

using tests::TempFolder;
using tests::wideName;

err::ResultCode openResult(const std::wstring& name)
{
    std::unique_ptr<InputFile> file;
    const err::ResultCode result = openInputFile(name, file);
    EXPECT_EQ(file != nullptr, err::succeeded(result));
    return result;
}

TEST(InputFile, OpensAFileUnderEveryFormOfItsName)
{
    const TempFolder folder;
    const std::wstring name =
        wideName(folder.write("r\xC3\xA9sum\xC3\xA9 \xE6\x96\x87\xE5\xAD\x97 & 'x'.txt", ""));
    std::wstring backward = name;
    std::ranges::replace(backward, L'/', L'\\');
    std::wstring forward = name;
    std::ranges::replace(forward, L'\\', L'/');
    for (const std::wstring& form : {backward, forward, L"\\\\?\\" + backward})
        EXPECT_EQ(openResult(form), err::ResultCode());
}

TEST(InputFile, ReportsTheSystemsErrorForWhatCannotBeOpened)
{
    const TempFolder folder;
    EXPECT_EQ(openResult(wideName(folder.file("missing"))), err::systemError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(openResult(wideName(folder.file("missing/deeper"))), err::systemError(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(openResult(wideName(folder.path())), err::systemError(ERROR_ACCESS_DENIED)) << "a folder";
}

TEST(InputFile, SharesWithAWriterAndIsRefusedByAnExclusiveHolder)
{
    const TempFolder folder;
    const std::wstring name = wideName(folder.write("held", "contents"));
    const auto resultWhileHeld = [&](DWORD access, DWORD sharing) {
        HANDLE const holder = CreateFileW(name.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
        EXPECT_NE(holder, INVALID_HANDLE_VALUE);
        const err::ResultCode result = openResult(name);
        CloseHandle(holder);
        return result;
    };
    EXPECT_EQ(resultWhileHeld(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE),
              err::ResultCode());
    EXPECT_EQ(resultWhileHeld(GENERIC_READ, 0), err::systemError(ERROR_SHARING_VIOLATION));
}

TEST(InputFile, CannotBeDeletedUntilItIsClosed)
{
    const TempFolder folder;
    const std::wstring name = wideName(folder.write("held", "contents"));
    std::unique_ptr<InputFile> file;
    ASSERT_EQ(openInputFile(name, file), err::ResultCode());
    EXPECT_FALSE(DeleteFileW(name.c_str()));
    file.reset();
    EXPECT_TRUE(DeleteFileW(name.c_str()));
}

} // namespace
} // namespace quillon::platform
