// What both readers of text files promise.

#include "file/TextFileReader.h"
#include "support/CaseTable.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace quillon::file {
namespace {

template <class Reader>
class TextReaders : public testing::Test
{
protected:
    static constexpr bool kDecodes = !std::is_same_v<Reader, Utf8FileReader>;

    std::string write(const std::string& content)
    {
        return tests::utf8Name(m_folder.write("t\u00E4xt", content));
    }

    std::string readLines()
    {
        std::vector<std::string> lines;
        for (std::string line; m_reader.readLine(line);)
            lines.push_back(line);
        return tests::inBrackets(lines);
    }

    const tests::TempFolder m_folder;
    Reader m_reader;
};

using BothReaders = testing::Types<Utf8FileReader, internal::TextFileReader<char>>;
TYPED_TEST_SUITE(TextReaders, BothReaders);

TYPED_TEST(TextReaders, ReadTheLinesBehindTheMarkAsOftenAsAsked)
{
    TypeParam& reader = this->m_reader;
    for (const tests::CaseRow& row : tests::readCaseTable("file/text-files.txt")) {
        const std::string& lines = row[this->kDecodes ? 4 : row.size() - 1];
        ASSERT_EQ(reader.open(this->write(row[0]), std::stoi(row[1])), err::ResultCode{});
        EXPECT_EQ(std::to_string(static_cast<int>(reader.getBomKind())), row[2]) << row[0];
        EXPECT_EQ(std::to_string(reader.getEncoding()), this->kDecodes ? row[3] : "1") << row[0];
        EXPECT_EQ(this->readLines(), lines);
        EXPECT_EQ(this->readLines(), "");
        EXPECT_EQ(reader.rewind(), err::ResultCode{});
        EXPECT_EQ(this->readLines(), lines);
        reader.close();
    }
}

TYPED_TEST(TextReaders, RefuseToOpenAndToReadWithTheReason)
{
    TypeParam& reader = this->m_reader;
    const std::string folder = tests::utf8Name(this->m_folder.path());
    for (const std::string& path : {std::string(), folder, folder + "/none"}) {
        const err::ResultCode reason{5, path.empty() ? 40U : 41U};
        io::EBomKind kind = io::EBomKind::Utf8;
        EXPECT_EQ(reader.open(path, 1), reason) << path;
        EXPECT_EQ(detectBom(path, kind), reason) << path;
        EXPECT_EQ(kind, io::EBomKind::None) << path;
    }
    std::string line = "kept";
    EXPECT_FALSE(reader.readLine(line));
    EXPECT_EQ(line, "kept");
    EXPECT_EQ(reader.getLastError(), (err::ResultCode{5, 104}));
    reader.close();
    EXPECT_EQ(reader.getLastError(), err::ResultCode{});
    EXPECT_EQ(reader.readAll(), "");
    EXPECT_EQ(reader.getLastError(), (err::ResultCode{5, 104}));
    const std::string path = this->write("\xEF\xBB\xBFx");
    ASSERT_EQ(reader.open(path, 1), err::ResultCode{});
    EXPECT_EQ(reader.getLastError(), err::ResultCode{});
    EXPECT_EQ(reader.open("", 1), (err::ResultCode{5, 54}));
    EXPECT_EQ(reader.getFileName(), path);
    EXPECT_EQ(reader.getBomKind(), this->kDecodes ? io::EBomKind::Utf8 : io::EBomKind::None);
}

} // namespace
} // namespace quillon::file
