#include "i18n/StrBundleTrMgr.h"

#include "i18n/LocaleResLoader.h"
#include "i18n/TranslationListLoaderXml.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace quillon::i18n::internal {
namespace {

constexpr const char* kList = R"(<locales>
    <locale language="xx" country="XX" file="de.tr"/>
    <locale language="de" country="DE" file="missing.tr"/>
    <locale language="DE" country="de" file="x/../de.tr" filetype="dll"/>
    <locale language="fr" country="FR" file="fr.tr"/></locales>)";

std::string entry(const std::string& context, const std::string& source, const std::string& translation)
{
    return "@begin @context " + context + "@src " + source + " @tr " + translation + " @end\n";
}

class StrBundleTrMgrTest : public testing::Test
{
protected:
    StrBundleTrMgrTest()
    {
        m_folder.write("kestrum.langs.xml", kList);
        m_folder.write("fr.tr", entry("*", "Open", "Ouvrir"));
        m_folder.write("de.tr", entry("A", "Open", "A1") + entry("a", "OPEN", "A2") +
                                    entry("*", "Open", "Any") + entry("*", "Both", "Any") +
                                    entry("", "Both", "None") + entry("B", "Only", "B") +
                                    entry("*", "Empty", "\"\""));
        static_cast<void>(m_manager.setProductName("Kestrum"));
    }

    std::string loadAndOpen(const char* language, const char* country, bool force)
    {
        EXPECT_EQ(m_manager.loadTranslation(language, country, force), err::ResultCode{});
        return m_manager.getString("x", "Open");
    }

    const tests::TempFolder m_folder;
    StrBundleTrMgr<char> m_manager{std::make_shared<TranslationListLoaderFactory<char>>(),
                                   std::make_shared<LocaleResLoaderFactory<char>>(),
                                   tests::utf8Name(m_folder.path())};
};

TEST(ItemNameCmp, OrdersWithoutCaseAndNullFirst)
{
    const char* const ordered[] = {nullptr, "", "A", "AB", "b", "\xC3"};
    const ItemNameCmp less;
    for (const auto& a : ordered)
        for (const auto& b : ordered)
            EXPECT_EQ(less(a, b), &a < &b);
    EXPECT_FALSE(less("ab", "AB") || less("AB", "ab"));
}

TEST_F(StrBundleTrMgrTest, FindsTheTextOfTheNearestContext)
{
    EXPECT_EQ(m_manager.getString("x", "Open"), "Open");
    ASSERT_EQ(loadAndOpen("De", "dE", true), "Any");
    EXPECT_EQ(m_manager.getItemCount(), 4U);
    const struct
    {
        const char* context;
        const char* source;
        const char* text;
    } cases[] = {{"A", "open", "A2"},        {"B", "Open", "Any"}, {"", "Open", "Any"},
                 {nullptr, "Open", "Any"},   {"B", "BOTH", "Any"}, {nullptr, "Both", "None"},
                 {"", "Both", "None"},       {"b", "only", "B"},   {"C", "Only", "Only"},
                 {nullptr, "Only", "Only"},  {"x", "Empty", ""},   {"A", nullptr, ""},
                 {"A", "Nothing", "Nothing"}};
    for (const auto& each : cases)
        EXPECT_EQ(m_manager.getString(each.context, each.source), each.text);
}

TEST_F(StrBundleTrMgrTest, ReplacesOneLanguageByAnother)
{
    EXPECT_EQ(loadAndOpen("de", "DE", false), "Any");
    EXPECT_EQ(loadAndOpen("fr", "FR", false), "Ouvrir");
    EXPECT_EQ(m_manager.getItemCount(), 1U);
    m_folder.write("fr.tr", entry("*", "Open", "Nouveau"));
    EXPECT_EQ(loadAndOpen("FR", "fr", false), "Ouvrir");
    EXPECT_EQ(loadAndOpen("FR", "fr", true), "Nouveau");
    EXPECT_EQ(m_manager.getLanguage() + m_manager.getCountry(), "FRfr");
    for (const char* unknown : {"xx", "en", "it"}) {
        EXPECT_EQ(loadAndOpen("fr", "FR", true), "Nouveau");
        EXPECT_EQ(loadAndOpen(unknown, "XX", false), "Open");
        EXPECT_EQ(m_manager.getLanguage(), unknown);
    }
    EXPECT_EQ(loadAndOpen("en", "US", false), "Open");
}

TEST_F(StrBundleTrMgrTest, OffersEnglishAndForgetsTheListWithTheProduct)
{
    std::vector<Translation<char>> list;
    ASSERT_EQ(m_manager.getTranslations(list), err::ResultCode{});
    ASSERT_EQ(list.size(), 5U);
    Translation<char> english;
    EXPECT_EQ(m_manager.getTranslationCount(), 5);
    EXPECT_FALSE(m_manager.getTranslation(english, -1) || m_manager.getTranslation(english, 5));
    ASSERT_TRUE(m_manager.getTranslation(english, 4));
    EXPECT_EQ(english.displayName + english.language + english.country, "English (United States)enUS");
    EXPECT_EQ(english.type, 16U);
    EXPECT_EQ(m_manager.setProductName("KESTRUM"), err::ResultCode{});
    EXPECT_EQ(m_manager.getTranslationCount(), 5);
    EXPECT_EQ(m_manager.setProductName("other"), err::ResultCode{});
    EXPECT_EQ(m_manager.getTranslationCount(), 0);
    EXPECT_EQ(m_manager.loadTranslation("de", "DE", true), (err::ResultCode{5, 41}));
    EXPECT_EQ(m_manager.getLanguage(), "de");
    m_folder.write("other.langs.xml", "<locales><locale language='EN' country='us'/></locales>");
    EXPECT_EQ(m_manager.getTranslations(list), err::ResultCode{});
    EXPECT_EQ(list.size(), 1U);
    m_folder.write("other.langs.xml", "<");
    EXPECT_EQ(m_manager.loadTranslation("fr", "FR", true), (err::ResultCode{5, 22112}));
    EXPECT_EQ(m_manager.getLanguage(), "fr");
}

TEST(StrBundleTrMgr, NeedsItsFactories)
{
    StrBundleTrMgr<char> manager({}, {});
    std::vector<Translation<char>> list;
    EXPECT_EQ(manager.loadTranslation("de", "DE", true), (err::ResultCode{5, 630}));
    EXPECT_EQ(manager.getTranslations(list), (err::ResultCode{5, 630}));
}

TEST_F(StrBundleTrMgrTest, KeepsOnlySoManySourceTexts)
{
    std::string many;
    for (int i = 0; i < 25'001; ++i)
        many += entry("*", std::to_string(i) + "s", "t");
    m_folder.write("fr.tr", many + entry("A", "0s", "again"));
    EXPECT_EQ(loadAndOpen("fr", "FR", true), "Open");
    EXPECT_EQ(m_manager.getItemCount(), 25'000U);
    EXPECT_EQ(m_manager.getString("", "24999s"), "t");
    EXPECT_EQ(m_manager.getString("", "25000s"), "25000s");
    EXPECT_EQ(m_manager.getString("A", "0s"), "again");
}

TEST_F(StrBundleTrMgrTest, AnswersLookupsDuringLoads)
{
    std::atomic<bool> isOver = false;
    std::atomic<int> strange = 0;
    std::vector<std::thread> readers;
    for (int i = 0; i < 3; ++i)
        readers.emplace_back([&] {
            Translation<char> entry;
            while (!isOver) {
                const std::string text = m_manager.getString("x", "Open");
                strange += text != "Open" && text != "Any" && text != "Ouvrir";
                m_manager.getTranslation(entry, m_manager.getTranslationCount() - 1);
                strange += m_manager.getLanguage().size() > 2 || m_manager.getItemCount() > 4;
            }
        });
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(loadAndOpen(i % 2 == 0 ? "de" : "fr", i % 2 == 0 ? "DE" : "FR", false) == "Open", false);
    isOver = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(strange, 0);
}

TEST(StrBundleTrMgr, LooksBesideTheProgram)
{
    const std::filesystem::path folder = languagesFolder();
    EXPECT_EQ(folder.filename(), "languages");
    EXPECT_TRUE(exists(folder.parent_path() / "i18n_test") || exists(folder.parent_path() / "i18n_test.exe"));
    EXPECT_EQ(&getStrBundleMgr(), &getStrBundleMgr());
}

} // namespace
} // namespace quillon::i18n::internal
