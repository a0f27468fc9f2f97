#include "settings/CErrMsg.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

namespace thisapp {
namespace {

const std::map<std::uint32_t, std::string> kTexts{
    {17, "Data stream not defined"},
    {40, "File name not defined"},
    {41, "File not found"},
    {42, "Open file failed"},
    {43, "Get file size failed"},
    {45, "Reading file failed"},
    {60, "Reading data stream failed"},
    {200, "File name not defined"},
    {201, "File not found"},
    {1004, "Hash calculation was stopped"},
    {4006, "Cryptographic engine is not initialized"},
};

TEST(CErrMsg, OfTheProgramsOwnCodesThoseOfTheTableHaveATextAndNoOthers)
{
    for (std::uint32_t code = 0; code <= 5000; ++code) {
        std::string text = "untouched";
        const auto row = kTexts.find(code);
        EXPECT_EQ(CErrMsg().buildMessage(5, code, text), row != kTexts.end()) << code;
        EXPECT_EQ(text, row != kTexts.end() ? row->second : "untouched") << code;
    }
}

TEST(CErrMsg, SystemErrorsHaveTheSystemsText)
{
    std::string text;
    EXPECT_TRUE(CErrMsg().buildMessage(1, 2, text));
    EXPECT_FALSE(text.empty());
    EXPECT_FALSE(CErrMsg().buildMessage(1, 0x7FFFFFFF, text));
}

TEST(CErrMsg, OtherGroupsHaveNoTexts)
{
    std::string text = "untouched";
    for (const std::uint32_t group : {0U, 3U, 7U, 50U, 54U})
        EXPECT_FALSE(CErrMsg().buildMessage(group, 41, text)) << group;
    EXPECT_EQ(text, "untouched");
}

} // namespace
} // namespace thisapp
