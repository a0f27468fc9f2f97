#include "compare/Comparison.h"

#include "compare/ListFile.h"
#include "support/CaseTable.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace quillon::compare {
namespace {

std::string valuesIn(const std::string& text)
{
    std::string read;
    for (const ExpectedValue& value : readExpectedValues(text)) {
        const bool isUnknown = value.algorithm == 0 && !value.algorithmName.empty();
        read += '[' + std::to_string(value.algorithm) + ' ' + (isUnknown ? value.algorithmName + ' ' : "") +
                value.digits + ' ' + value.fileName + ']';
    }
    return read;
}

TEST(ExpectedValue, IsReadFromTheFormsOfTheTable)
{
    for (const tests::CaseRow& row : tests::readCaseTable("compare/expected-values.txt")) {
        std::string lines;
        for (const ExpectedValue& value : readExpectedValues(row.at(0)))
            lines += value.lines + '\n';
        EXPECT_EQ(valuesIn(row[0]), row.at(1)) << row[0];
        EXPECT_EQ(valuesIn(lines), row[1]) << lines;
    }
}

TEST(ExpectedValue, IsReadFromFilesInEachEncoding)
{
    const std::string text = "a\u00FC\U0001F600";
    EXPECT_EQ(textOfFile(text), text);
    EXPECT_EQ(textOfFile("\xEF\xBB\xBF" + text), text);
    EXPECT_EQ(textOfFile({"\xFF\xFE"
                          "a\0\xFC\0\x3D\xD8\x00\xDE\0",
                          11}),
              text);
    EXPECT_EQ(textOfFile({"\xFE\xFF\0a\0\xFC\xD8\x3D\xDE\x00", 10}), text);
}

std::string textOf(const std::string& cell)
{
    if (!cell.starts_with("lists/"))
        return cell;
    std::ostringstream text;
    text << std::ifstream(KESTRUM_TEST_DATA "/compare/" + cell, std::ios::binary).rdbuf();
    return text.str();
}

TEST(Comparison, ComesToWhatTheTableSays)
{
    constexpr const char* kAnswers[] = {"Unread", "NotListed", "Contradictory", "OtherAlgorithm",
                                        "Equal",  "Beginning", "OtherLength",   "Different"};
    for (const tests::CaseRow& row : tests::readCaseTable("compare/comparisons.txt")) {
        const CalculatedValue ours{row.at(1), static_cast<std::uint32_t>(std::stoul(row.at(2))), row.at(3)};
        const Comparison comparison = compareWith(readExpectedValues(textOf(row[0])), ours);
        std::string outcome = kAnswers[static_cast<std::size_t>(comparison.answer)];
        outcome += (comparison.value.digits.empty() ? "" : " ") + comparison.value.digits;
        for (const std::uint32_t algorithm : comparison.algorithms)
            outcome += ' ' + std::to_string(algorithm);
        EXPECT_EQ(outcome + (comparison.isOfOtherName ? " other name" : ""), row.at(4))
            << row[0] << ours.fileName;
    }
}

} // namespace
} // namespace quillon::compare
