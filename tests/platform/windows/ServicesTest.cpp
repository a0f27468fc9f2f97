// The small services of the system that have little to say each.

#include "platform/Process.h"
#include "platform/RuntimeLibrary.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace quillon::platform {
namespace {

TEST(SystemErrorText, KnownNumbersHaveATrimmedTextAndUnknownOnesNone)
{
    const std::string text = osErrorText(ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(text.empty());
    EXPECT_NE(text.back(), '\n');
    EXPECT_EQ(osErrorText(0x2FFFFFFFU), "");
}

TEST(ProgramPath, NamesTheProgramThatRuns)
{
    const std::string path = programPath();
    EXPECT_NE(path.find(":\\"), std::string::npos) << path;
    EXPECT_NE(path.find("platform_test.exe"), std::string::npos) << path;
}

TEST(ProgramArguments, ComeFromTheProcessAndNotFromTheEntryFunction)
{
    const char* const line[] = {"program", "invented"};
    for (const std::string& argument : programArguments(2, line))
        EXPECT_NE(argument, "invented");
}

TEST(ProcessIds, AreThoseOfTheProcessAndOfTheCallingThread)
{
    EXPECT_EQ(currentProcessId(), GetCurrentProcessId());
    std::uint32_t other = 0;
    std::thread([&] { other = currentThreadId(); }).join();
    EXPECT_NE(other, currentThreadId());
}

TEST(RuntimeLibrary, FindsWhatALibraryExportsAndNothingElse)
{
    const RuntimeLibrary library = loadRuntimeLibrary("kernel32.dll");
    ASSERT_TRUE(library);
    EXPECT_NE(findLibrarySymbol(library, "GetTickCount"), nullptr);
    EXPECT_EQ(findLibrarySymbol(library, "NoSuchNameAnywhere"), nullptr);
    EXPECT_FALSE(loadRuntimeLibrary("no such library.dll"));
}

} // namespace
} // namespace quillon::platform
