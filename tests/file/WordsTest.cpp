#include "file/Words.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::file {
namespace {

TEST(Trim, TakesWhiteSpaceFromBothEndsAndNoByteAbove127)
{
    const std::string cases[][2] = {
        {" \t\r\n\v\fa b \n", "a b"},
        {" \n ", ""},
        {"", ""},
        {"\xC2\xA0x\x85", "\xC2\xA0x\x85"},
    };
    for (const auto& [text, expected] : cases) {
        std::string trimmed = text;
        trim(trimmed);
        EXPECT_EQ(trimmed, expected);
    }
    std::wstring wide = L"\t \u00E4 b\r\n";
    trim(wide);
    EXPECT_EQ(wide, L"\u00E4 b");
}

TEST(IsBoolWord, KnowsTheWordsOfBothListsInAnyCaseAndNoOthers)
{
    for (const wchar_t* word : {L"1", L"OK", L"Yes", L"ofcouse", L"TRUE"})
        EXPECT_TRUE(isBoolWord(word, true) && !isBoolWord(word, false)) << word;
    for (const wchar_t* word : {L"0", L"not", L"No", L"NEVER", L"false"})
        EXPECT_TRUE(isBoolWord(word, false) && !isBoolWord(word, true)) << word;
    for (const wchar_t* word : {L"", L"of course", L"ofcourse", L"on", L"yes ", L"o\u212A", L"ye"})
        EXPECT_FALSE(isBoolWord(word, true) || isBoolWord(word, false)) << word;
}

} // namespace
} // namespace quillon::file
