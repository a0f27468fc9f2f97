#include "file/TextFileReader.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon::file {
namespace {

using namespace std::string_literals;
using Utf16Reader = internal::TextFileReader<char>;
using Lines = std::vector<std::string>;

/// The bytes of ASCII text in UTF-16.
std::string utf16(const std::string& ascii, bool isBigEndian)
{
    std::string bytes;
    for (const char c : ascii)
        bytes += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return bytes;
}

Lines readLines(ITextFileReader<char>& reader)
{
    Lines lines;
    for (std::string line; reader.readLine(line);)
        lines.push_back(line);
    return lines;
}

/// What both readers have in common, for files of ASCII text.
template <class Reader>
class TextReaders : public testing::Test
{
protected:
    std::string write(const std::string& content)
    {
        return tests::utf8Name(m_folder.write("t\u00E4xt", content));
    }

    tests::TempFolder m_folder;
    Reader m_reader;
};

using BothReaders = testing::Types<Utf8FileReader, Utf16Reader>;
TYPED_TEST_SUITE(TextReaders, BothReaders);

TYPED_TEST(TextReaders, LinesEndAtLineFeedsAndTheLastOneMayBeEmpty)
{
    const std::string edge(65536, 'x');
    const std::pair<std::string, Lines> cases[] = {
        {"", {""}},
        {"a", {"a"}},
        {"a\n", {"a", ""}},
        {"a\r\nb", {"a\r", "b"}},
        {"\n\n", {"", "", ""}},
        {"\xEF\xBB\xBF", {""}},
        {"\xEF\xBB\xBFu\n", {"u", ""}},
        {"a\0b\n"s, {"a\0b"s, ""}},
        {edge + "\n" + edge, {edge, edge}},
        {edge.substr(1) + "\nx", {edge.substr(1), "x"}},
    };
    for (const auto& [content, lines] : cases) {
        ASSERT_EQ(this->m_reader.open(this->write(content), 1), err::ResultCode{});
        EXPECT_EQ(readLines(this->m_reader), lines);
        std::string line = "kept";
        EXPECT_FALSE(this->m_reader.readLine(line));
        EXPECT_EQ(line, "kept");
        EXPECT_EQ(this->m_reader.rewind(), err::ResultCode{});
        EXPECT_EQ(readLines(this->m_reader), lines);
        this->m_reader.close();
    }
}

TYPED_TEST(TextReaders, ReadAllGivesAllBehindTheMarkWhereverTheReaderStood)
{
    ASSERT_EQ(this->m_reader.open(this->write("\xEF\xBB\xBF"
                                              "a\nb\n"),
                                  0),
              err::ResultCode{});
    std::string line;
    EXPECT_TRUE(this->m_reader.readLine(line));
    EXPECT_EQ(this->m_reader.readAll(), "a\nb\n");
    EXPECT_FALSE(this->m_reader.readLine(line));
    EXPECT_EQ(this->m_reader.readAll(), "a\nb\n");
}

TYPED_TEST(TextReaders, RefuseToOpenWithTheReason)
{
    EXPECT_EQ(this->m_reader.open("", 1), (err::ResultCode{5, 40}));
    EXPECT_EQ(this->m_reader.open(tests::utf8Name(this->m_folder.path()), 1), (err::ResultCode{5, 41}));
    EXPECT_EQ(this->m_reader.open(tests::utf8Name(this->m_folder.file("none")), 1), (err::ResultCode{5, 41}));
    EXPECT_FALSE(this->m_reader.isOpen());
    const std::string path = this->write("\xEF\xBB\xBFx");
    ASSERT_EQ(this->m_reader.open(path, 1), err::ResultCode{});
    EXPECT_EQ(this->m_reader.getFileName(), path);
    EXPECT_EQ(this->m_reader.getBomKind(), io::EBomKind::Utf8);
    EXPECT_EQ(this->m_reader.open("", 1), (err::ResultCode{5, 54}));
    this->m_reader.close();
    EXPECT_EQ(this->m_reader.getFileName(), "");
    EXPECT_EQ(this->m_reader.getBomKind(), io::EBomKind::None);
}

TYPED_TEST(TextReaders, AClosedReaderSaysSo)
{
    std::string line = "kept";
    EXPECT_FALSE(this->m_reader.readLine(line));
    EXPECT_EQ(line, "kept");
    EXPECT_EQ(this->m_reader.getLastError(), (err::ResultCode{5, 104}));
    this->m_reader.close();
    EXPECT_EQ(this->m_reader.getLastError(), err::ResultCode{});
    EXPECT_EQ(this->m_reader.readAll(), "");
    EXPECT_EQ(this->m_reader.getLastError(), (err::ResultCode{5, 104}));
    EXPECT_EQ(this->m_reader.rewind(), (err::ResultCode{5, 104}));
}

TEST(Utf8FileReader, HandsOutBytesAsTheyAreButReadAllCutsAPieceAtAZero)
{
    const tests::TempFolder folder;
    const std::string start(1023, 'x');
    const std::string content = "\xFF\x80\nab\0cd\nef\n"s + start + "\0lost"s;
    Utf8FileReader reader;
    ASSERT_EQ(reader.open(tests::utf8Name(folder.write("t", content)), 21), err::ResultCode{});
    EXPECT_EQ(reader.getEncoding(), 1);
    EXPECT_EQ(readLines(reader), (Lines{"\xFF\x80", "ab\0cd"s, "ef", start + "\0lost"s}));
    EXPECT_EQ(reader.readAll(), "\xFF\x80\nabef\n" + start);
}

TEST(TextFileReader, DecodesByTheMarkAndElseByTheEncodingAskedFor)
{
    struct Case
    {
        std::string bytes;
        int asked;
        int encoding;
        Lines lines;
    };
    const Case cases[] = {
        {"\xFE\xFF" + utf16("a\r\nb", true), 1, 20, {"a\r", "b"}},
        {"\xFF\xFE" + utf16("a\nb\n", false), 20, 21, {"a", "b", ""}},
        {utf16("a\nb", true), 20, 20, {"a", "b"}},
        {utf16("a\nb", false), 21, 21, {"a", "b"}},
        {"a\nb", 40, 40, {"a", "b"}},
        {"\xFF\xFE\0\0"s + utf16("a", false), 1, 21, {"a"}},
        {"\0\0\xFE\xFF"s + utf16("a", false), 1, 21, {"a"}},
        {"\xFF\xFE", 0, 21, {""}},
        // U+0A0A and U+0A41 hold the byte of a line feed.
        {"\x0A\x0A\x0A\x41\x41\x0A\0\x0A"s, 20, 20, {"\u0A0A\u0A41\u410A", ""}},
        {"\x0A\x0A\x41\x0A\x0A\x41\x0A\0"s, 21, 21, {"\u0A0A\u0A41\u410A", ""}},
        {"\xD8\x3D\xDE\x00"s, 20, 20, {"\U0001F600"}},
        // Halves of pairs, a unit cut in the middle, bytes that are no UTF-8.
        {"\xDE\x00\xD8\x3D\x00\x61\xD8\x3D"s, 20, 20, {"\uFFFD\uFFFDa\uFFFD"}},
        {"a\0b"s, 21, 21, {"a\uFFFD"}},
        {"a\xFF\xE2\x82\nb\xC0\x80", 1, 1, {"a\uFFFD\uFFFD\uFFFD", "b\uFFFD\uFFFD"}},
    };
    const tests::TempFolder folder;
    for (const Case& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.bytes));
        Utf16Reader reader;
        ASSERT_EQ(reader.open(tests::utf8Name(folder.write("t", each.bytes)), each.asked), err::ResultCode{});
        EXPECT_EQ(reader.getEncoding(), each.encoding);
        EXPECT_EQ(readLines(reader), each.lines);
        std::string whole;
        for (const std::string& line : each.lines)
            whole += (whole.empty() && &line == &each.lines.front() ? "" : "\n") + line;
        EXPECT_EQ(reader.readAll(), whole);
    }
}

} // namespace
} // namespace quillon::file
