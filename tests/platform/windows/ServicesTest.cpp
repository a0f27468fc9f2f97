#include "platform/Process.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace quillon::platform {
namespace {

TEST(SystemErrorText, KnownNumbersHaveATrimmedTextAndUnknownOnesNone)
{
    const std::string text = osErrorText(ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(text.empty());
    EXPECT_NE(text.back(), '\n');
    EXPECT_EQ(osErrorText(0x2FFFFFFFU), "");
}

TEST(Process, KnowsItsProgramAndItsArgumentsByItself)
{
    EXPECT_NE(programPath().find(":\\"), std::string::npos) << programPath();
    EXPECT_NE(programPath().find("\\platform_test.exe"), std::string::npos) << programPath();
    const char* const line[] = {"program", "invented"};
    for (const std::string& argument : programArguments(2, line))
        EXPECT_NE(argument, "invented");
}

} // namespace
} // namespace quillon::platform
