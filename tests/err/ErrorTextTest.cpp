#include "err/ErrorText.h"

#include "support/CaseTable.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

namespace quillon::err {
namespace {

const std::map<std::pair<std::uint32_t, std::uint32_t>, std::string> kTexts{
    {{5, 45}, "Reading file failed"}, {{1, 2}, " \tThe system says.\r\n"}, {{1, 3}, "\r\n"}};

struct FewTexts final : internal::CErrMsgBuilder<char>
{
    bool buildMessage(std::uint32_t group, std::uint32_t code, std::string& text) const override
    {
        const auto known = kTexts.find({group, code});
        text = known == kTexts.end() ? "text of nothing" : known->second;
        return known != kTexts.end();
    }
};

ResultCode codeOf(const std::string& text)
{
    const auto number = [](const std::string& digits) { return static_cast<std::uint32_t>(stoul(digits)); };
    return {number(text), number(text.substr(text.find('/') + 1))};
}

TEST(ErrorText, IsTheFirstTextThatThereIsWithTheNumbers)
{
    for (const tests::CaseRow& row : tests::readCaseTable("err/sentences.txt")) {
        const ResultCode first = codeOf(row.at(1));
        const ResultCode second = codeOf(row.at(2));
        const ResultCode third = codeOf(row.at(3));
        EXPECT_EQ(formatError(FewTexts(), row[0], first, second, third), row.at(4));
        EXPECT_EQ(errorCodesText(first, second, third), row.at(5));
    }
}

} // namespace
} // namespace quillon::err
