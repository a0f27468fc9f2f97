#include "file/FileBytes.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::file {
namespace {

using namespace std::string_literals;

TEST(BomDetection, TheLongestMarkThatIsWholeCounts)
{
    struct Case
    {
        std::string head;
        int kind;
    };
    const Case cases[] = {
        {"", 0},
        {"\xFE", 0},
        {"\xFE\xFF", 20},
        {"\xFF\xFE", 21},
        {"\xFF\xFE\x41\0"s, 21},
        {"\xFF\xFE\0"s, 21},
        {"\xFF\xFE\0\0"s, 41},
        {"\xFF\xFE\0\0more"s, 41},
        {"\0\0\xFE\xFF"s, 40},
        {"\0\0\xFE"s, 0},
        {"\xEF\xBB", 0},
        {"\xEF\xBB\xBF", 1},
        {"\xEF\xBB\xBFtext", 1},
        {" \xEF\xBB\xBF", 0},
    };
    const tests::TempFolder folder;
    for (const Case& each : cases) {
        io::EBomKind kind = io::EBomKind::Utf32BigEndian;
        EXPECT_EQ(detectBom(tests::utf8Name(folder.write("t\u00E4xt", each.head)), kind), err::ResultCode{});
        EXPECT_EQ(static_cast<int>(kind), each.kind) << testing::PrintToString(each.head);
    }
}

TEST(BomDetection, WhatIsNoFileIsRefusedAndHasNoMark)
{
    const tests::TempFolder folder;
    const std::pair<std::string, err::ResultCode> cases[] = {
        {"", {5, 40}},
        {tests::utf8Name(folder.file("missing")), {5, 41}},
        {tests::utf8Name(folder.path()), {5, 41}},
    };
    for (const auto& [path, expected] : cases) {
        io::EBomKind kind = io::EBomKind::Utf8;
        EXPECT_EQ(detectBom(path, kind), expected) << path;
        EXPECT_EQ(kind, io::EBomKind::None) << path;
    }
}

} // namespace
} // namespace quillon::file
