#include "text/Unicode.h"

#include "support/CaseTable.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quillon::text {
namespace {

TEST(Unicode, ConvertsWhatIsWellFormedInBothDirectionsAndReplacesTheRest)
{
    for (const tests::CaseRow& row : tests::readCaseTable("text/utf8.txt")) {
        // The standard library's own conversion.
        const std::wstring wide =
            tests::wideName(std::filesystem::path(std::u8string(row[1].begin(), row[1].end())));
        EXPECT_EQ(wideFromUtf8(row[0]), wide) << row[0];
        EXPECT_EQ(utf8FromWide(wide), row[1]);
        EXPECT_EQ(isUtf8(row[0]), row[0] == row[1]) << row[0];
    }
}

TEST(Unicode, ALoneSurrogateBecomesTheReplacement)
{
    for (const int surrogate : {0xD800, 0xDBFF, 0xDC00, 0xDFFF})
        EXPECT_EQ(utf8FromWide(std::wstring(1, static_cast<wchar_t>(surrogate)) + L'b'), "\uFFFDb");
}

} // namespace
} // namespace quillon::text
