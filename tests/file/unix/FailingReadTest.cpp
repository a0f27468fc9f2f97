#include "file/TextFileReader.h"
#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::file {
namespace {

// A regular file whose first page cannot be read, for any user.
constexpr const char* kUnreadable = "/proc/self/mem";

template <class Reader>
class FailingRead : public testing::Test
{
};

using BothReaders = testing::Types<Utf8FileReader, internal::TextFileReader<char>>;
TYPED_TEST_SUITE(FailingRead, BothReaders);

TYPED_TEST(FailingRead, IsReportedOnceAndEndsTheFile)
{
    TypeParam reader;
    ASSERT_EQ(reader.open(kUnreadable, 1), err::ResultCode{});
    std::string line = "old";
    EXPECT_TRUE(reader.readLine(line));
    EXPECT_EQ(line, "");
    EXPECT_EQ(reader.getLastError(), (err::ResultCode{5, 45}));
    EXPECT_FALSE(reader.readLine(line));
    EXPECT_EQ(reader.readAll(), "");
    EXPECT_EQ(reader.getLastError(), (err::ResultCode{5, 45}));
}

} // namespace
} // namespace quillon::file
