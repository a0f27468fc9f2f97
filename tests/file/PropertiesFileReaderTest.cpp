#include "file/PropertiesFileReader.h"

#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quillon::file {
namespace {

using Reader = internal::PropertiesFileReader<char, internal::TextFileReader<char>>;
using Pairs = std::vector<std::pair<std::string, std::string>>;

/// Writes down the pairs that come, and does `onPair` with each.
class Notebook final : public vars::internal::IVariablesSetter<char>
{
public:
    Pairs pairs;
    std::function<err::ResultCode()> onPair = [] { return err::ResultCode{}; };

    err::ResultCode setValue(const std::string& key, const std::string& value,
                             const vars::internal::SVariableOptions& options) override
    {
        EXPECT_EQ(options.type, 0U);
        EXPECT_EQ(options.mode, 1U);
        return setValue(key, value);
    }
    err::ResultCode setValue(const std::string& key, const std::string& value) override
    {
        pairs.emplace_back(key, value);
        return onPair();
    }
    err::ResultCode removeValue(const std::string& /*key*/) override { return {}; }
    err::ResultCode clearValues() override { return {}; }
};

/// Takes what begins with "p."; puts "K" in place of "$" at the front of a text.
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

    tests::TempFolder m_folder;
    Reader m_reader;
    Notebook m_notebook;
};

TEST_F(PropertiesFileReader, WalksLinesIntoPairs)
{
    const std::pair<std::string, Pairs> cases[] = {
        {"", {}},
        {"a b = c", {{"a b", "c"}}},
        {"a=b\r\nc:d\r\n", {{"a", "b"}, {"c", "d"}}},
        {"a = b  \t\n", {{"a", "b  \t"}}},
        {"alone\n", {{"alone", ""}}},
        {"# a=b\n  ! c=d\n \t\r\n\ne=#f", {{"e", "#f"}}},
        // escapes
        {R"(key = a\nb)", {{"key", "a\nb"}}},
        {R"(k=\r\t\u0041\U\x\=nrtuU)", {{"k", "\r\t0041x=nrtuU"}}},
        {R"(a\=b: c)", {{"a=b", "c"}}},
        {R"(\n\u=x:y=z)", {{"nu", "x:y=z"}}},
        {R"(k=a\\n)", {{"k", "a\\\n"}}},
        {R"(k\\e=v)", {{"ke", "\\v"}}},
        // continuations
        {"a=1\\\n   2\\ \t\n3\nb=4", {{"a", "123"}, {"b", "4"}}},
        {"a=1\\\n# no\n\n2", {{"a", "12"}}},
        {"a=1\\\\\nb=2", {{"a", "1\\"}, {"b", "2"}}},
        {"a=1\\\r\n2", {{"a", "12"}}},
        {"b=1\na=2\\", {{"b", "1"}, {"a", "2"}}},
        // an empty key takes the rest into its value
        {"a=1\n=x\nb=2\nc", {{"a", "1"}}},
        {"a=1\n \\\nn=2\n=\nb=3", {{"a", "1"}, {"n", "2"}}},
    };
    for (const auto& [content, pairs] : cases) {
        m_notebook.pairs.clear();
        EXPECT_EQ(m_reader.read(write(content), &m_notebook, 0), err::ResultCode{});
        EXPECT_EQ(m_notebook.pairs, pairs) << content;
    }
}

TEST_F(PropertiesFileReader, ExpandsThenPrefixesThenFilters)
{
    Rules rules;
    const std::string path = write("a=$\nb=2\n$=3\ngone=4\na=5\n");
    const auto pairsOf = [this](auto&&... arguments) {
        m_notebook.pairs.clear();
        EXPECT_EQ(m_reader.read(arguments...), err::ResultCode{});
        return m_notebook.pairs;
    };
    Notebook* const setter = &m_notebook;
    const Pairs plain{{"a", "$"}, {"b", "2"}, {"$", "3"}, {"gone", "4"}, {"a", "5"}};
    const Pairs expanded{{"a", "K "}, {"b", "2"}, {"K", "3"}, {"a", "5"}};
    EXPECT_EQ(pairsOf(path, setter, &rules, &rules, false, "p.", 0), (Pairs{{"p.a", "K "}, {"p.a", "5"}}));
    EXPECT_EQ(pairsOf(path, setter, &rules, &rules, false, 0), Pairs{});
    EXPECT_EQ(pairsOf(path, setter, &rules, &rules, true, "", 0), expanded);
    EXPECT_EQ(pairsOf(path, setter, &rules, &rules, 0), expanded);
    EXPECT_EQ(pairsOf(path, setter, false, "", 0), plain);
    EXPECT_EQ(pairsOf(path, setter, 0), plain);
}

TEST_F(PropertiesFileReader, ReportsTheFirstFailureAndReadsOn)
{
    unsigned calls = 0;
    m_notebook.onPair = [&calls] { return ++calls == 1 ? err::ResultCode{} : err::ResultCode{9, calls}; };
    EXPECT_EQ(m_reader.read(write("a=1\nb=2\nc=3"), &m_notebook, 1), (err::ResultCode{9, 2}));
    EXPECT_EQ(m_notebook.pairs.size(), 3U);
    EXPECT_EQ(m_reader.read("", &m_notebook, 1), (err::ResultCode{5, 5}));
    EXPECT_EQ(m_reader.read(write("a=1"), nullptr, 1), (err::ResultCode{5, 5}));
    EXPECT_EQ(m_reader.read(tests::utf8Name(m_folder.file("none")), &m_notebook, 1),
              (err::ResultCode{5, 41}));
}

TEST_F(PropertiesFileReader, StopsBehindTheLineAtWhichItIsTold)
{
    m_notebook.onPair = [this] {
        m_reader.stop();
        return err::ResultCode{};
    };
    const std::string path = write("a=1\nb=2");
    EXPECT_EQ(m_reader.read(path, &m_notebook, 1), err::ResultCode{});
    EXPECT_EQ(m_notebook.pairs, (Pairs{{"a", "1"}}));
    m_notebook.onPair = [] { return err::ResultCode{}; };
    EXPECT_EQ(m_reader.read(path, &m_notebook, 1), err::ResultCode{});
    EXPECT_EQ(m_notebook.pairs.size(), 3U);
}

} // namespace
} // namespace quillon::file
