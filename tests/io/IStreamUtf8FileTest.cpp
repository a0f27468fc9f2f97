#include "io/IStreamUtf8File.h"

#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <vector>

namespace quillon::io {
namespace {

using namespace std::string_literals;
using Lines = std::vector<std::string>;

/// All deliveries up to the end or the first failure, and that failure.
struct Delivery
{
    Lines lines;
    err::ResultCode lastError;
};

Delivery readAll(const std::string& content, int count)
{
    const tests::TempFolder folder;
    IStreamUtf8File stream;
    EXPECT_EQ(stream.open(tests::utf8Name(folder.write("t\u00E4xt", content)).c_str()), err::ResultCode{});
    EXPECT_EQ(stream.size(), static_cast<std::int64_t>(content.size()));
    Lines lines;
    std::vector<char> buffer(static_cast<std::size_t>(count));
    unsigned bytesRead = 0;
    while (stream.read(buffer.data(), count, &bytesRead))
        lines.emplace_back(buffer.data(), bytesRead);
    return {lines, stream.lastError()};
}

TEST(IStreamUtf8File, OpeningIsRefusedWithTheReason)
{
    const tests::TempFolder folder;
    IStreamUtf8File stream;
    EXPECT_EQ(stream.open(nullptr), (err::ResultCode{5, 5}));
    EXPECT_EQ(stream.open(""), (err::ResultCode{5, 5}));
    EXPECT_EQ(stream.open(tests::utf8Name(folder.file("missing")).c_str()), (err::ResultCode{3, ENOENT}));
    EXPECT_EQ(stream.lastError(), (err::ResultCode{3, ENOENT}));
    EXPECT_FALSE(err::succeeded(stream.open(tests::utf8Name(folder.path()).c_str())));
    const std::string name = tests::utf8Name(folder.write("x", "a"));
    ASSERT_EQ(stream.open(name.c_str()), err::ResultCode{});
    EXPECT_EQ(stream.open(name.c_str()), (err::ResultCode{5, 7}));
}

TEST(IStreamUtf8File, EachReadTakesOneLine)
{
    const std::string longLine = std::string(3000, 'x') + '\n';
    for (const int count : {100, 8000}) {
        const Lines lines = readAll("a\nb\r\n\nc", count).lines;
        EXPECT_EQ(lines, (Lines{"a\n", "b\r\n", "\n", "c"})) << count;
    }
    EXPECT_EQ(readAll("a\n" + longLine, 8000).lines.front(), "a\n");
}

TEST(IStreamUtf8File, LargeReadsKeepTwoBytesFree)
{
    const std::string content(4000, 'x');
    EXPECT_EQ(readAll(content, 2047).lines, (Lines{std::string(2047, 'x'), std::string(1953, 'x')}));
    EXPECT_EQ(readAll(content, 2048).lines, (Lines{std::string(2046, 'x'), std::string(1954, 'x')}));
    EXPECT_EQ(readAll(content, 9999).lines, (Lines{std::string(3998, 'x'), "xx"}));
}

TEST(IStreamUtf8File, LargeReadsZeroTheWholeBuffer)
{
    const tests::TempFolder folder;
    IStreamUtf8File stream;
    const std::string name = tests::utf8Name(folder.write("x", "a\n" + std::string(3000, 'x')));
    ASSERT_EQ(stream.open(name.c_str()), err::ResultCode{});
    std::vector<char> buffer(4096, 'z');
    unsigned bytesRead = 0;
    ASSERT_TRUE(stream.read(buffer.data(), 4096, &bytesRead));
    EXPECT_EQ(bytesRead, 2U);
    EXPECT_EQ(std::count(buffer.begin() + 2, buffer.end(), '\0'), 4094);
}

struct Head
{
    std::string content;
    Lines lines;
    err::ResultCode lastError;
};

class IStreamUtf8FileHead : public testing::TestWithParam<Head>
{
};

TEST_P(IStreamUtf8FileHead, IsSkippedOnlyWhereItIsTheOneMarkThatIsKnown)
{
    const Delivery delivery = readAll(GetParam().content, 100);
    EXPECT_EQ(delivery.lines, GetParam().lines);
    EXPECT_EQ(delivery.lastError, GetParam().lastError);
}

// Where a mark or a zero byte is swallowed, the bytes delivered never reach the size, and the end is an
// error.
constexpr err::ResultCode kEnd{5, 3};
INSTANTIATE_TEST_SUITE_P(
    Marks, IStreamUtf8FileHead,
    testing::Values(Head{"\xEF\xBB\xBF"s, {"\xEF\xBB\xBF"}, {}},
                    Head{"\xEF\xBB\xBFxy"s, {"\xEF\xBB\xBFxy"}, {}}, Head{"\xFE\xFF"s, {"\xFE\xFF"}, {}},
                    Head{"\xFF\xFE"s, {"\xFF\xFE"}, {}}, Head{"\xFF\xFExy"s, {"\xFF\xFExy"}, {}},
                    Head{"\xFF\xFE\0\0xy"s, {"xy"}, kEnd}, Head{"\xFF\xFE\0xyz"s, {"yz"}, kEnd},
                    Head{"\0\0\xFE\xFFxy"s, {""}, kEnd}, Head{"a\0b\nc"s, {"a", "c"}, kEnd}));

} // namespace
} // namespace quillon::io
