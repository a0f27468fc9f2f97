#include "i18n/TranslationListLoaderXml.h"

#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace quillon::i18n::internal {
namespace {

using namespace std::string_literals;

constexpr err::ResultCode kMalformed{5, 22112};
constexpr err::ResultCode kNoUtf8{5, 22120};

struct Loaded
{
    err::ResultCode result;
    std::vector<Translation<char>> list;
};

Loaded load(std::string_view xml)
{
    static const tests::TempFolder folder;
    TranslationListLoaderXml<char> loader;
    Loaded loaded;
    loaded.result = loader.load("any", tests::utf8Name(folder.write("list.xml", xml)));
    loader.getList(loaded.list);
    return loaded;
}

std::string repeated(std::string_view text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

std::vector<Translation<char>> rows(const std::string& attributes)
{
    return load("<locales><locale " + attributes + "/></locales>").list;
}

TEST(TranslationListLoaderXml, TakesAllFieldsFromTheAttributes)
{
    const Loaded loaded =
        load("\xEF\xBB\xBF<?xml version='1.0' encoding='latin1'?><!-- x --><other/><locales>"
             "<other language='xx'/><locale Language='x' language=' de\t' country='DE' "
             "displayname='Fran&#231;ais&amp;\xD0\x96' filetype=' Translations ' file=' a b ' "
             "description='d' language='yy'>text</locale><locale/></locales>");
    EXPECT_EQ(loaded.result, err::ResultCode{});
    ASSERT_EQ(loaded.list.size(), 2U);
    const Translation<char>& row = loaded.list[0];
    EXPECT_EQ(row.type, kTranslationTranslations);
    EXPECT_EQ(row.displayName, "Fran\xC3\xA7"s + "ais&\xD0\x96");
    EXPECT_EQ(row.language, "de");
    EXPECT_EQ(row.country, "DE");
    EXPECT_EQ(row.file, "a b");
    EXPECT_EQ(row.description, "d");
    EXPECT_EQ(loaded.list[1].language + loaded.list[1].file, "");
}

TEST(TranslationListLoaderXml, LeavesOutWhatIsDisabled)
{
    for (const char* word : {"OFCOUSE", "true ", "yes", "1"})
        EXPECT_TRUE(rows("disabled='"s + word + '\'').empty()) << word;
    for (const char* word : {"maybe", "no", "", "of course"})
        EXPECT_EQ(rows("disabled='"s + word + '\'').size(), 1U) << word;
}

TEST(TranslationListLoaderXml, KnowsTheKindsOfFiles)
{
    const std::pair<const char*, std::uint32_t> cases[] = {
        {"PROPERTIES", 1}, {"translations", 16}, {"Dll", 32}, {"xml", 0}, {"", 0}};
    for (const auto& [name, type] : cases)
        EXPECT_EQ(rows("filetype='"s + name + '\'').at(0).type, type) << name;
}

TEST(TranslationListLoaderXml, TellsWhyThereIsNoList)
{
    const std::pair<std::string, err::ResultCode> cases[] = {
        {"", {}},
        {"\xEF\xBB\xBF", {}},
        {"<locales/>", {}},
        {"<x/>", {}},
        {"<x><locales><locale/></locales></x>", {}},
        {"\0<locales/>"s, {}},
        {"no xml", kMalformed},
        {"<locales><locale>", kMalformed},
        {"<locales a='\xC3('/>", kNoUtf8},
        {"<locales/>\xED\xA0\x80", kNoUtf8},
    };
    for (const auto& [xml, result] : cases) {
        const Loaded loaded = load(xml);
        EXPECT_EQ(loaded.result, result) << xml;
        EXPECT_TRUE(loaded.list.empty()) << xml;
    }
    TranslationListLoaderXml<char> loader;
    EXPECT_EQ(loader.load("any", "no/such/file"), (err::ResultCode{5, 41}));
    EXPECT_EQ(TranslationListLoaderFactory<char>().create(nullptr), (err::ResultCode{5, 6}));
}

TEST(TranslationListLoaderXml, ReadsDeepAndWideElements)
{
    constexpr int kMany = 1'000'000;
    const Loaded deep =
        load("<locales><locale>" + repeated("<a>", kMany) + repeated("</a>", kMany) + "</locale></locales>");
    EXPECT_EQ(deep.result, err::ResultCode{});
    EXPECT_EQ(deep.list.size(), 1U);
    EXPECT_EQ(rows(repeated(" a=''", kMany) + " file='f'").at(0).file, "f");
}

TEST(TranslationListLoaderXml, RefusesWhatWouldTakeTooMuchMemory)
{
    constexpr int kMany = 30'000;
    for (const char* piece : {"x<a>", "><a>>", "\f<a>"})
        EXPECT_EQ(load("<r>" + repeated(piece, kMany)).result, kMalformed) << piece;
    EXPECT_EQ(load("<r>" + repeated("<a/>x", kMany) + "</r>").result, kMalformed);
    EXPECT_EQ(load("<locales>" + repeated("<locale/>", kMany) + "</locales>").result, kNoUtf8);
    EXPECT_EQ(
        load("<locales>" + repeated("<locale language='de' file='f'/>", kMany) + "</locales>").list.size(),
        std::size_t{kMany});
}

TEST(TranslationListLoaderXml, SurvivesDamagedFiles)
{
    const std::string good =
        "<?xml?><!DOCTYPE a [<!b>]><locales><!--c--><locale file='&lt;'/><![CDATA[d]]></locales>";
    std::mt19937 random(1);
    for (int i = 0; i < 150; ++i) {
        std::string bad = good;
        bad[random() % bad.size()] = static_cast<char>(random());
        bad.insert(random() % bad.size(), bad, random() % bad.size());
        const err::ResultCode result = load(bad.substr(0, random() % bad.size())).result;
        EXPECT_TRUE(succeeded(result) || result == kMalformed || result == kNoUtf8) << bad;
    }
}

} // namespace
} // namespace quillon::i18n::internal
