#include "io/IStreamFile.h"

#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>

namespace quillon::io {
namespace {

class IStreamFileTest : public testing::Test
{
protected:
    void openWith(std::string_view content)
    {
        path = folder.write("input", content);
        ASSERT_EQ(stream.open(tests::wideName(path).c_str()), err::ResultCode{});
    }

    tests::TempFolder folder;
    std::filesystem::path path;
    IStreamFile<wchar_t> stream;
    std::array<char, 16> buffer{};
    unsigned bytesRead = 77;
};

TEST_F(IStreamFileTest, OpeningWithoutANameIsRefused)
{
    EXPECT_EQ(stream.open(nullptr), (err::ResultCode{5, 5}));
    EXPECT_EQ(stream.open(L""), (err::ResultCode{5, 5}));
}

TEST_F(IStreamFileTest, OpeningAMissingFileReportsTheSystemError)
{
    const err::ResultCode result = stream.open(tests::wideName(folder.file("missing")).c_str());
    EXPECT_EQ(result, (err::ResultCode{1, ENOENT}));
    EXPECT_EQ(stream.lastError(), result);
    EXPECT_TRUE(stream.isEnd());
}

TEST_F(IStreamFileTest, OpeningAgainIsRefusedUntilItIsClosed)
{
    openWith("abc");
    EXPECT_EQ(stream.open(tests::wideName(path).c_str()), (err::ResultCode{5, 7}));
    EXPECT_TRUE(stream.read(buffer.data(), 2, &bytesRead));
    stream.close();
    EXPECT_EQ(stream.size(), 0);
    ASSERT_EQ(stream.open(tests::wideName(path).c_str()), err::ResultCode{});
    EXPECT_TRUE(stream.isBegin());
    EXPECT_TRUE(stream.read(buffer.data(), 16, &bytesRead));
    EXPECT_EQ(std::string(buffer.data(), bytesRead), "abc");
}

TEST_F(IStreamFileTest, ReadingAClosedStreamSaysSo)
{
    EXPECT_FALSE(stream.read(buffer.data(), 1, &bytesRead));
    EXPECT_EQ(stream.lastError(), (err::ResultCode{5, 104}));
    EXPECT_EQ(bytesRead, 77U);
}

TEST_F(IStreamFileTest, WhatIsAddedAfterTheOpenIsNotRead)
{
    openWith("abc");
    folder.write("input", "abcdef");
    EXPECT_TRUE(stream.read(buffer.data(), 16, &bytesRead));
    EXPECT_EQ(bytesRead, 3U);
    EXPECT_TRUE(stream.isEnd());
}

TEST_F(IStreamFileTest, ACutFileDeliversReadsOfNothingAndNoEnd)
{
    openWith("abc");
    std::filesystem::resize_file(path, 1);
    EXPECT_TRUE(stream.read(buffer.data(), 16, &bytesRead));
    EXPECT_EQ(bytesRead, 1U);
    EXPECT_TRUE(stream.read(buffer.data(), 16, &bytesRead));
    EXPECT_EQ(bytesRead, 0U);
    EXPECT_FALSE(stream.isEnd());
    EXPECT_EQ(stream.lastError(), err::ResultCode{});
}

} // namespace
} // namespace quillon::io
