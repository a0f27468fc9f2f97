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
        return setValue(key, value);
    }
    err::ResultCode setValue(const std::string& key, const std::string& value) override
    {
        pairs.push_back(key + '=' + value);
        return onPair();
    }
    err::ResultCode removeValue(const std::string& /*key*/) override { return {}; }
    err::ResultCode clearValues() override { return {}; }
};

/// Takes what begins with "p.a"; puts "K " in place of "$" at the front of a text.
class Rules final : public IKeyFilter<char>, public ITextExpander<char>
{
public:
    bool accepts(const std::string& key) override { return key.starts_with("p.a"); }
    void expand(std::string& text) override
    {
        if (text.starts_with('$'))
            text.replace(0, 1, "K ");
        if (text == "gone")
            text = " ";
    }
};

class PropertiesFileReader : public testing::Test
{
protected:
    std::string write(const std::string& content) { return tests::utf8Name(m_folder.write("p", content)); }

    /// The pairs that come of a read with these arguments.
    template <class... Arguments>
    std::string read(err::ResultCode expected, const std::string& path, Arguments... arguments)
    {
        EXPECT_EQ(m_reader.read(path, &m_notebook, arguments...), expected) << path;
        return tests::inBrackets(std::exchange(m_notebook.pairs, {}));
    }

    const tests::TempFolder m_folder;
    internal::PropertiesFileReader<char, internal::TextFileReader<char>> m_reader;
    Notebook m_notebook;
};

TEST_F(PropertiesFileReader, WalksLinesIntoPairs)
{
    for (const tests::CaseRow& row : tests::readCaseTable("file/properties.txt"))
        EXPECT_EQ(read({}, write(row[1]), std::stoi(row[0])), row[2]) << row[1];
}

TEST_F(PropertiesFileReader, ExpandsThenPrefixesThenFilters)
{
    Rules rules;
    const std::string path = write("a=$\nb=2\n$=3\ngone=4\na=5\n");
    EXPECT_EQ(read({}, path, &rules, &rules, false, "p.", 0), "[p.a=K ][p.a=5]");
    EXPECT_EQ(read({}, path, &rules, &rules, false, 0), "");
    EXPECT_EQ(read({}, path, &rules, &rules, true, "", 0), "[a=K ][b=2][K=3][a=5]");
    EXPECT_EQ(read({}, path, &rules, &rules, 0), "[a=K ][b=2][K=3][a=5]");
    EXPECT_EQ(read({}, path, false, "p.", 0), "[p.a=$][p.b=2][p.$=3][p.gone=4][p.a=5]");
}

TEST_F(PropertiesFileReader, ReportsTheFirstFailureAndReadsOn)
{
    unsigned calls = 0;
    m_notebook.onPair = [&calls] { return ++calls == 1 ? err::ResultCode{} : err::ResultCode{9, calls}; };
    EXPECT_EQ(read({9, 2}, write("a=1\nb=2\nc=3"), 1), "[a=1][b=2][c=3]");
    EXPECT_EQ(read({5, 5}, "", 1), "");
    EXPECT_EQ(m_reader.read(write("a=1"), nullptr, 1), (err::ResultCode{5, 5}));
    EXPECT_EQ(read({5, 41}, tests::utf8Name(m_folder.file("none")), 1), "");
}

TEST_F(PropertiesFileReader, StopsBehindTheLineAtWhichItIsToldAndNotTheNextTime)
{
    const std::string path = write("a=1\nb=2\\");
    m_notebook.onPair = [this] { return m_reader.stop(), err::ResultCode{}; };
    EXPECT_EQ(read({}, path, 1), "[a=1]");
    m_notebook.onPair = [] { return err::ResultCode{}; };
    EXPECT_EQ(read({}, path, 1), "[a=1][b=2]");
}

} // namespace
} // namespace quillon::file
