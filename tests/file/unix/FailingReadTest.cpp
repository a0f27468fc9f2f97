#include "file/TextFileReader.h"
#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace quillon::file {
namespace {

TEST(FailingRead, IsReportedOnceAndEndsTheFile)
{
    Utf8FileReader bytes;
    internal::TextFileReader<char> text;
    for (ITextFileReader<char>* reader : std::initializer_list<ITextFileReader<char>*>{&bytes, &text}) {
        // A regular file whose first page cannot be read, for any user.
        ASSERT_EQ(reader->open("/proc/self/mem", 1), err::ResultCode{});
        std::string line = "old";
        EXPECT_TRUE(reader->readLine(line));
        EXPECT_EQ(line, "");
        EXPECT_EQ(reader->getLastError(), (err::ResultCode{5, 45}));
        EXPECT_FALSE(reader->readLine(line));
        EXPECT_EQ(reader->readAll(), "");
        EXPECT_EQ(reader->getLastError(), (err::ResultCode{5, 45}));
    }
}

} // namespace
} // namespace quillon::file
