#include "platform/InputFile.h"
#include "platform/Process.h"
#include "platform/windows/LongName.h"
#include "support/CaseTable.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"
#include "text/Unicode.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace quillon::platform {
namespace {

TEST(InputFile, SharesWithAWriterAndWithNobodyWhoKeepsOrRemovesTheFile)
{
    const tests::TempFolder folder;
    const std::wstring name = tests::wideName(folder.write("held", "contents"));
    std::unique_ptr<InputFile> file;
    for (const DWORD sharing : {DWORD{0}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        HANDLE const holder =
            CreateFileW(name.c_str(), GENERIC_WRITE, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
        EXPECT_NE(holder, INVALID_HANDLE_VALUE);
        EXPECT_EQ(openInputFile(name, file),
                  sharing == 0 ? err::systemError(ERROR_SHARING_VIOLATION) : err::ResultCode());
        CloseHandle(holder);
    }
    EXPECT_FALSE(DeleteFileW(name.c_str()));
    file.reset();
    EXPECT_TRUE(DeleteFileW(name.c_str()));
}

TEST(LongName, OpensAlsoWhereTheMachineIsNotSetUpForOne)
{
    for (const tests::CaseRow& row : tests::readCaseTable("platform/windows/long-names.txt"))
        EXPECT_EQ(text::utf8FromWide(withLongNamePrefix(text::wideFromUtf8(row[0]))), row[1]);
    const tests::TempFolder folder;
    std::filesystem::path deep = LR"(\\?\)" + folder.path().native();
    for (int level = 0; level < 10; ++level)
        std::filesystem::create_directory(deep /= std::string(40, 'd'));
    std::ofstream(deep / "file") << "contents";
    std::unique_ptr<InputFile> file;
    EXPECT_EQ(openInputFile((deep / "file").native().substr(4), file), err::ResultCode{});
}

TEST(Process, KnowsItsProgramItsArgumentsAndTheSystemsTextsByItself)
{
    EXPECT_TRUE(programPath().ends_with("\\platform_test.exe")) << programPath();
    EXPECT_EQ(programPath().find(":\\"), 1U) << programPath();
    const char* const line[] = {"program", "invented"};
    for (const std::string& argument : programArguments(2, line))
        EXPECT_NE(argument, "invented");
    const std::string text = osErrorText(ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(text.empty() || text.ends_with('\n')) << text;
    EXPECT_EQ(osErrorText(0x2FFFFFFFU), "");
}

} // namespace
} // namespace quillon::platform
