#include "i18n/LocaleResLoader.h"
#include "i18n/Translation.h"
#include "support/CaseTable.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace quillon::i18n::internal {
namespace {

class Recorder final : public ILocaleResLoaderCallback<char>
{
public:
    void onItem(const std::string& context, const std::string& source,
                const std::string& translation) override
    {
        items.push_back(context + '/' + source + '/' + translation);
    }

    std::vector<std::string> items;
};

/// Runs in a folder of its own.
class TranslationFile : public testing::Test
{
protected:
    TranslationFile() { std::filesystem::current_path(m_folder.path()); }
    ~TranslationFile() override { std::filesystem::current_path(m_former); }

    std::vector<std::string> itemsOf(const std::string& file, unsigned kind = kTranslationTranslations,
                                     err::ResultCode expected = {})
    {
        ILocaleResLoader<char>* made = nullptr;
        EXPECT_EQ(LocaleResLoaderFactory<char>().create(&made, kind), err::ResultCode{});
        const std::unique_ptr<ILocaleResLoader<char>> loader(made);
        Recorder recorder;
        EXPECT_EQ(loader->load(file, &recorder), expected) << file;
        return recorder.items;
    }

    std::string load(const std::string& content)
    {
        m_folder.write("f", content);
        return tests::inBrackets(itemsOf("f"));
    }

    const std::filesystem::path m_former = std::filesystem::current_path();
    const tests::TempFolder m_folder;
};

TEST_F(TranslationFile, SaysTheSameAheadOfAndBehindOtherEntries)
{
    const std::string good = "\n@begin @context * @src good @tr t @end\n";
    for (const tests::CaseRow& row : tests::readCaseTable("i18n/entries.txt")) {
        EXPECT_EQ(load(row[0]), row[1]);
        EXPECT_EQ(load(row[0] + good + row[0]), row[1] + "[*/good/t]" + row[1]);
    }
}

TEST_F(TranslationFile, ReadsIncludesOnceAndOnlyAheadOfTheEntries)
{
    const auto rows = tests::readCaseTable("i18n/includes.txt");
    for (const tests::CaseRow& row : rows)
        m_folder.write(row[0], row[1]);
    for (const tests::CaseRow& row : rows)
        EXPECT_EQ(tests::inBrackets(itemsOf(row[0])), row[2]) << row[1];
}

TEST_F(TranslationFile, LeavesOutIncludesThatAreTooDeepOrTooMany)
{
    std::string many;
    for (int i = 0; i < 1200; ++i) {
        const std::string name = std::to_string(i);
        const std::string next = i < 40 ? "@include \"" + std::to_string(i + 1) + "\" " : "";
        m_folder.write(name, next + "@begin @context c @src s @tr t @end");
        many += "@include \"" + name + "\" ";
    }
    m_folder.write("many", many);
    EXPECT_EQ(itemsOf("0").size(), 33U);
    EXPECT_EQ(itemsOf("many").size(), 999U);
}

TEST_F(TranslationFile, MayBeAPropertiesFileOrNoneAtAll)
{
    m_folder.write("p", "# x\nOpen file = \u00D6ffnen\\n\nb: c\n");
    EXPECT_EQ(tests::inBrackets(itemsOf("p", kTranslationProperties)), "[/Open file/\u00D6ffnen\n][/b/c]");
    EXPECT_EQ(tests::inBrackets(itemsOf("p", kTranslationDll)), "");
    for (const unsigned kind : {kTranslationProperties, kTranslationTranslations}) {
        for (const char* missing : {"none", "."})
            itemsOf(missing, kind, {5, 41});
    }
    itemsOf(" ", kTranslationTranslations, {5, 40});
    EXPECT_EQ(LocaleResLoaderFactory<char>().create(nullptr, kTranslationProperties),
              (err::ResultCode{5, 6}));
}

} // namespace
} // namespace quillon::i18n::internal
