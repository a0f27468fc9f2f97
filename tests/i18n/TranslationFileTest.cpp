#include "i18n/LocaleResLoader.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace quillon::i18n::internal {
namespace {

using namespace std::string_literals;
using Item = std::vector<std::string>; ///< context, source, translation
using Items = std::vector<Item>;

constexpr unsigned kProperties = 1;
constexpr unsigned kTranslations = 16;

class Recorder final : public ILocaleResLoaderCallback<char>
{
public:
    void onItem(const std::string& context, const std::string& source,
                const std::string& translation) override
    {
        items.push_back({context, source, translation});
    }

    Items items;
};

Items loadFile(const std::string& path, unsigned kind, err::ResultCode expected = {})
{
    ILocaleResLoader<char>* made = nullptr;
    EXPECT_EQ(LocaleResLoaderFactory<char>().create(&made, kind), err::ResultCode{});
    const std::unique_ptr<ILocaleResLoader<char>> loader(made);
    Recorder recorder;
    EXPECT_EQ(loader->load(path, &recorder), expected) << path;
    return recorder.items;
}

Items load(std::string_view content)
{
    static const tests::TempFolder folder;
    return loadFile(tests::utf8Name(folder.write("f.tr", content)), kTranslations);
}

std::string entry(const std::string& source)
{
    return "@begin @context c @src " + source + "@tr t @end\n";
}

std::string sourceOf(const std::string& field)
{
    const Items items = load(entry(field));
    return items.size() == 1 ? items[0].at(1) : "no single entry";
}

std::string repeated(std::string_view text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

TEST(TranslationFile, DecodesTexts)
{
    const std::pair<std::string, std::string> cases[] = {
        {"a b\r\n", "a b"},
        {"\"  a  \" ", "  a  "},
        {"   a  ", "a"},
        {"\"\" ", ""},
        {"\" ", "\""},
        {"\"\"a\"\" ", "\"a\""},
        {R"(a\nb\rc\td\ue\Uf\xg)", "a\nb\rc\td\te\tfxg"},
        {R"(a\\n)", "a\\\n"s.substr(0, 2)},
        {R"(a\\nb)", "a\\\nb"},
        {R"(a\\\\b)", R"(a\\\b)"},
        {R"(a\@end)", "a@end"},
        {"a@b@ ", "a@b@"},
        {"a # b\n c", "a # b\n c"},
        {"\xC3\xA4\xA0 ", "\xC3\xA4\xA0"},
        {R"(a\n)", "a"},
        {R"("a\n")", "a\n"},
        {R"(\\@tr)", "\\@tr"},
        {R"(a\\ )", "a\\"},
    };
    for (const auto& [field, text] : cases)
        EXPECT_EQ(sourceOf(field), text) << field;
}

TEST(TranslationFile, TakesContextsAsTheyStand)
{
    const std::pair<std::string, std::string> cases[] = {
        {"@context@src", ""},
        {"@context \n@src", ""},
        {"@context * @src", "*"},
        {R"(@context "a\n" @src)", R"("a\n")"},
        {R"(@context a\@src b@c @src)", R"(a\@src b@c)"},
    };
    for (const auto& [field, context] : cases)
        EXPECT_EQ(load("@begin" + field + "s@tr t@end"), (Items{{context, "s", "t"}})) << field;
}

TEST(TranslationFile, TakesFieldsInAnyOrderEachOnce)
{
    const Item good{"c", "s", "t"};
    EXPECT_EQ(load("@begin@tr t@src s@context c@end"), (Items{good}));
    EXPECT_EQ(load("# @begin x\r@begin\n\n@src s@context c@transfer@end"), (Items{{"c", "s", "ansfer"}}));
    for (const std::string_view bad :
         {"@begin@src s@tr t@end", "@begin@src s@src s@tr t@context c@end",
          "@begin x@src s@tr t@context c@end", "@begin # x\n@src s@tr t@context c@end",
          "@begin@context c@src s@tr t", "@begin@context c@src s@tr t@tr",
          "@begin@include@src s@tr t@context c@end", "@Begin@src s@tr t@context c@end", "@begin@begin", "@",
          "\\"})
        EXPECT_EQ(load(std::string(bad) + "@begin@context c@src s@tr t@end zz" + std::string(bad)),
                  (Items{good}))
            << bad;
}

TEST(TranslationFile, ReadsIncludesOnceAndOnlyAheadOfTheEntries)
{
    const tests::TempFolder folder;
    const auto name = [&folder](const char* file) { return tests::utf8Name(folder.file(file)); };
    const auto include = [&name](const char* file) { return "@include \"" + name(file) + "\"\n"; };
    folder.write("b", entry("b"));
    folder.write("c", "\xEF\xBB\xBF" + include("b") + entry("c"));
    folder.write("a", "# x\n" + include("a") + "# y\n" + include(" b ") + include("b") + include("none") +
                          "@include \"\"\n" + include("c") + "@include " + include("b") + entry("a"));
    EXPECT_EQ(loadFile(name("a"), kTranslations), (Items{{"c", "b", "t"}, {"c", "c", "t"}, {"c", "a", "t"}}));
    folder.write("d", "@include \"" + name("b") + "\\\"" + entry("d"));
    EXPECT_EQ(loadFile(name("d"), kTranslations), (Items{}));
    EXPECT_EQ(loadFile(name("none"), kTranslations, {5, 41}), (Items{}));
    EXPECT_EQ(loadFile(tests::utf8Name(folder.path()), kTranslations, {5, 41}), (Items{}));
    EXPECT_EQ(loadFile(" ", kTranslations, {5, 40}), (Items{}));
}

TEST(TranslationFile, ReadsOnAfterMarksAndZeroBytes)
{
    const Item a{"c", "a", "t"};
    for (const std::string& mark :
         {"\xEF\xBB\xBF"s, "\xFF\xFE\0\0"s, "\xFE\xFF"s, "\0"s, "x\0@begin\n"s, "\0\0\n\n\0\n"s})
        EXPECT_EQ(load(mark + '\n' + entry("a")), (Items{a}));
    EXPECT_EQ(load(entry("a") + repeated("\0"s, 100'000)), (Items{a}));
    EXPECT_EQ(load("@begin@context c\n@src a\0b\n@tr t@end"s), (Items{a}));
}

TEST(TranslationFile, ReadsEveryByteOfLargeFiles)
{
    Items expected;
    std::string content;
    for (int i = 0; i < 20'000; ++i) {
        expected.push_back({"c", std::to_string(i) + "s", "t"});
        content += entry(expected.back()[1] + (i % 3 == 0 ? " " : "\n"));
    }
    EXPECT_EQ(load(content), expected);
    const std::string line(10'000'000, 'x');
    EXPECT_EQ(sourceOf(line), line);
}

TEST(TranslationFile, TakesLinearTimeForFragments)
{
    for (const char* piece : {"@begin", "@", "\\", "@begin@src ", "@begin@context\\@", "#", "\"", "@include",
                              "@begin@tr\n@begi", "\0\n"})
        EXPECT_EQ(load(repeated(piece, 500'000)), (Items{})) << piece;
}

TEST(TranslationFile, LosesNoEntryBehindADamagedOne)
{
    const std::string good = "@include \"x\"\n#c\n" + entry("a\\n@b") + entry("\"b\"");
    std::mt19937 random(1);
    for (int file = 0; file < 20; ++file) {
        std::string content;
        for (int i = 0; i < 50; ++i) {
            std::string bad = good;
            bad[random() % bad.size()] = static_cast<char>(random());
            bad.insert(random() % bad.size(), bad, random() % bad.size());
            // An include or a comment may still be open, or an escape.
            content += bad.substr(0, random() % bad.size()) + "x\"\n" + entry("good");
        }
        EXPECT_EQ(std::ranges::count(load(content), Item{"c", "good", "t"}), 50) << content;
    }
}

TEST(TranslationFile, MayBeAPropertiesFile)
{
    const tests::TempFolder folder;
    const std::string name = tests::utf8Name(folder.write("p", "# x\nOpen file = \xC3\x96"
                                                               "ffnen\\n\nb: c\n"));
    EXPECT_EQ(loadFile(name, kProperties), (Items{{"", "Open file",
                                                   "\xC3\x96"
                                                   "ffnen\n"},
                                                  {"", "b", "c"}}));
    EXPECT_EQ(loadFile(name + "x", kProperties, {5, 41}), (Items{}));
    EXPECT_EQ(LocaleResLoaderFactory<char>().create(nullptr, kProperties), (err::ResultCode{5, 6}));
    EXPECT_EQ(loadFile(tests::utf8Name(folder.write("t", entry("a"))), 32).size(), 1U);
}

} // namespace
} // namespace quillon::i18n::internal
