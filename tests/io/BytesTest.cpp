#include "io/IStreamBytes.h"
#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon::io {
namespace {

TEST(IStreamBytes, ShrinksWithEachReadAndIsAtItsBeginUntilEmpty)
{
    IStreamBytes stream;
    stream.setBytes({'a', 'b', 'c', 'd', 'e'});
    char buffer[2] = {};
    unsigned bytesRead = 0;
    for (const std::int64_t left : {3, 1, 0}) {
        EXPECT_TRUE(stream.isBegin());
        EXPECT_TRUE(stream.read(buffer, 2, &bytesRead));
        EXPECT_EQ(stream.size(), left);
    }
    EXPECT_EQ(bytesRead, 1U);
    EXPECT_EQ(buffer[0], 'e');
    EXPECT_FALSE(stream.isBegin());
    EXPECT_FALSE(stream.read(buffer, 2, &bytesRead));
    EXPECT_EQ(bytesRead, 0U);
}

TEST(OStreamBytes, AppendsWhatIsWritten)
{
    OStreamBytes stream;
    EXPECT_EQ(stream.write("ab", 2), 2U);
    EXPECT_EQ(stream.writeChar('c'), 1U);
    EXPECT_EQ(stream.write("", 0), 0U);
    EXPECT_EQ(stream.write("x", -1), 0U);
    EXPECT_EQ(stream.bytes(), (std::vector<char>{'a', 'b', 'c'}));
}

} // namespace
} // namespace quillon::io
