#include "err/ErrorText.h"

#include <gtest/gtest.h>

namespace quillon::err {
namespace {

/// Knows three texts, one of them with white space round it and one that is nothing but white space.
class FewTexts final : public internal::CErrMsgBuilder<char>
{
public:
    bool buildMessage(std::uint32_t group, std::uint32_t code, std::string& text) const override
    {
        if (group == 5 && code == 45)
            text = "Reading file failed";
        else if (group == 1 && code == 2)
            text = " \tThe system says.\r\n";
        else if (group == 1 && code == 3)
            text = "\r\n";
        else
            return false;
        return true;
    }
};

struct Sentence
{
    const char* defaultText;
    ResultCode first, second, third;
    const char* expected;
};

class FormatError : public testing::TestWithParam<Sentence>
{
};

TEST_P(FormatError, GivesTheFirstTextAndAllNumbers)
{
    const Sentence& sentence = GetParam();
    EXPECT_EQ(formatError(FewTexts(), sentence.defaultText, sentence.first, sentence.second, sentence.third),
              sentence.expected);
}

INSTANTIATE_TEST_SUITE_P(
    ErrorText, FormatError,
    testing::Values(Sentence{"X.", {5, 999}, {}, {}, "X. (error: 5/999)"},
                    Sentence{" X.\n", {5, 999}, {}, {}, "X. (error: 5/999)"},
                    Sentence{"", {5, 999}, {}, {}, "(error: 5/999)"},
                    Sentence{"X.", {5, 45}, {1, 2}, {}, "Reading file failed (error: 5/45,1/2)"},
                    Sentence{"X.", {7, 1}, {5, 45}, {}, "Reading file failed (error: 7/1,5/45)"},
                    Sentence{"X.", {1, 2}, {}, {}, "The system says. (error: 1/2)"},
                    Sentence{"X.", {1, 3}, {5, 45}, {}, "Reading file failed (error: 1/3,5/45)"},
                    Sentence{"X.", {7, 1}, {}, {1, 2}, "The system says. (error: 7/1,0/0,1/2)"},
                    Sentence{"X.", {}, {5, 45}, {}, "Reading file failed (error: 0/0,5/45)"},
                    Sentence{"X.", {}, {}, {}, ""}, Sentence{"X.", {5, 0}, {1, 0}, {}, ""}));

TEST(ErrorText, CodesAreListedWithoutTheCleanOnesBehindTheFirst)
{
    EXPECT_EQ(errorCodesText({5, 90}), "5/90");
    EXPECT_EQ(errorCodesText({1, 2}, {5, 42}), "1/2,5/42");
    EXPECT_EQ(errorCodesText({1, 2}, {5, 0}, {50, 7}), "1/2,50/7");
    EXPECT_EQ(errorCodesText({}), "0/0");
    EXPECT_EQ(errorCodesText({4294967295U, 4294967295U}), "4294967295/4294967295");
}

} // namespace
} // namespace quillon::err
