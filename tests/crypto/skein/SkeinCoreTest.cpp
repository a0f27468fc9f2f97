#include "crypto/skein/SkeinCore.h"

#include "support/Bytes.h"
#include "support/CaseTable.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::skein {
namespace {

template <class State, class Init, class Update, class Final>
std::string outputOf(Init& init, Update& update, Final& final, unsigned bits, const std::string& message)
{
    State state;
    std::string output(bits / 8 + 1, '?');
    EXPECT_EQ(init(state, bits), 0U);
    EXPECT_EQ(update(state, message.data(), message.size()), 0U);
    EXPECT_EQ(final(state, output.data()), 0U);
    EXPECT_EQ(output.back(), '?') << "written behind the output";
    output.pop_back();
    return output;
}

TEST(SkeinCore, AnyOutputLengthGivesThePublishedFunction)
{
    for (const tests::CaseRow& row : tests::readCaseTable("crypto/skein/outputs.txt")) {
        const auto bits = static_cast<unsigned>(std::stoul(row[1]));
        const std::string message = tests::patternBytes(std::stoul(row[2]));
        const std::string output =
            row[0] == "256"
                ? outputOf<Skein256State>(skein256Init, skein256Update, skein256Final, bits, message)
            : row[0] == "512"
                ? outputOf<Skein512State>(skein512Init, skein512Update, skein512Final, bits, message)
                : outputOf<Skein1024State>(skein1024Init, skein1024Update, skein1024Final, bits, message);
        EXPECT_EQ(tests::hexOf(output), row[3]) << row[0] << ' ' << row[1] << ' ' << row[2];
    }
}

} // namespace
} // namespace quillon::skein
