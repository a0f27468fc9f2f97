// What the system makes of other holders of a file.

#include "platform/InputFile.h"

#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quillon::platform {
namespace {

using tests::TempFolder;
using tests::wideName;

TEST(InputFile, SharesWithAWriterAndIsRefusedByAnExclusiveHolder)
{
    const TempFolder folder;
    const std::wstring name = wideName(folder.write("held", "contents"));
    const auto resultWhileHeld = [&](DWORD access, DWORD sharing) {
        HANDLE const holder = CreateFileW(name.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
        EXPECT_NE(holder, INVALID_HANDLE_VALUE);
        std::unique_ptr<InputFile> file;
        const err::ResultCode result = openInputFile(name, file);
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
