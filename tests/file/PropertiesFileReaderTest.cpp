#include "file/PropertiesFileReader.h"

#include "support/CaseTable.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quillon::file {
namespace {

/// Writes down the pairs that come, and does `onPair` with each.
class Notebook final : public vars::internal::IVariablesSetter<char>
{
public:
    std::vector<std::string> pairs;
    std::function<err::ResultCode()> onPair = [] { return err::ResultCode{}; };

    err::ResultCode setValue(const std::string& key, const std::string& value,
                             const vars::internal::SVariableOptions& /*options*/) override
    {
        pairs.push_back(key + '=' + value);
        return onPair();
    }
    err::ResultCode setValue(const std::string& /*key*/, const std::string& /*value*/) override { return {}; }
    err::ResultCode removeValue(const std::string& /*key*/) override { return {}; }
    err::ResultCode clearValues() override { return {}; }
};

class PropertiesFileReader : public testing::Test
{
protected:
    /// The pairs that come of reading a file of this content.
    std::string read(err::ResultCode expected, const std::string& content, int encoding)
    {
        const std::string path = tests::utf8Name(m_folder.write("p", content));
        EXPECT_EQ(m_reader.read(path, &m_notes, encoding), expected) << content;
        return tests::inBrackets(std::exchange(m_notes.pairs, {}));
    }

    const tests::TempFolder m_folder;
    internal::PropertiesFileReader<char, internal::TextFileReader<char>> m_reader;
    Notebook m_notes;
};

TEST_F(PropertiesFileReader, WalksLinesIntoPairs)
{
    for (const tests::CaseRow& row : tests::readCaseTable("file/properties.txt"))
        EXPECT_EQ(read({}, row[1], std::stoi(row[0])), row[2]) << row[1];
}

TEST_F(PropertiesFileReader, ReportsTheFirstFailureAndReadsOn)
{
    m_notes.onPair = [this] {
        const auto count = static_cast<std::uint32_t>(m_notes.pairs.size());
        return count == 1 ? err::ResultCode{} : err::ResultCode{9, count};
    };
    EXPECT_EQ(read({9, 2}, "a=1\nb=2\nc=3", 1), "[a=1][b=2][c=3]");
    EXPECT_EQ(m_reader.read("", &m_notes, 1), (err::ResultCode{5, 5}));
    EXPECT_EQ(m_reader.read("none", nullptr, 1), (err::ResultCode{5, 5}));
    EXPECT_EQ(m_reader.read("none", &m_notes, 1), (err::ResultCode{5, 41}));
}

} // namespace
} // namespace quillon::file
