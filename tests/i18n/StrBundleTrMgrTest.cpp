#include "i18n/StrBundleTrMgr.h"

#include "i18n/LocaleResLoader.h"
#include "i18n/TranslationListLoaderXml.h"
#include "support/CaseTable.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quillon::i18n::internal {
namespace {

/// A bundle over a copy of the list and the files that lie beside this test.
class StrBundleTrMgrTest : public testing::Test
{
protected:
    StrBundleTrMgrTest()
    {
        std::filesystem::copy(KESTRUM_TEST_DATA "/i18n/bundle", m_folder.path());
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

TEST_F(StrBundleTrMgrTest, FindsTheTextOfTheNearestContext)
{
    EXPECT_EQ(m_manager.getString("x", "Open"), "Open");
    ASSERT_EQ(loadAndOpen("De", "dE", true), "Any");
    const auto textOf = [](const std::string& cell) { return cell == "null" ? nullptr : cell.c_str(); };
    for (const tests::CaseRow& row : tests::readCaseTable("i18n/lookups.txt"))
        EXPECT_EQ(m_manager.getString(textOf(row[0]), textOf(row[1])), row[2]) << row[0] << ' ' << row[1];
    constexpr const char* kNone = nullptr;
    EXPECT_TRUE(ItemNameCmp()(kNone, "") && !ItemNameCmp()("", kNone) && !ItemNameCmp()(kNone, kNone));
}

TEST_F(StrBundleTrMgrTest, ReplacesOneLanguageByAnother)
{
    for (const tests::CaseRow& row : tests::readCaseTable("i18n/loads.txt")) {
        if (!row[3].empty())
            m_folder.write(row[3], "@begin@context*@src Open@tr New@end");
        EXPECT_EQ(loadAndOpen(row[0].c_str(), row[1].c_str(), row[2] == "forced"), row[4]) << row[0];
        EXPECT_EQ(m_manager.getItemCount(), row[4] == "Open" ? 0U : row[4] == "Any" ? 8U : 1U);
    }
    EXPECT_EQ(m_manager.getLanguage() + m_manager.getCountry(), "deFR");
}

TEST_F(StrBundleTrMgrTest, OffersEnglishAndForgetsTheListWithTheProduct)
{
    std::vector<Translation<char>> list;
    ASSERT_EQ(m_manager.getTranslations(list), err::ResultCode{});
    EXPECT_EQ(list.size(), 5U);
    Translation<char> english;
    EXPECT_FALSE(m_manager.getTranslation(english, -1) || m_manager.getTranslation(english, 5));
    ASSERT_TRUE(m_manager.getTranslation(english, 4));
    EXPECT_EQ(english.displayName + english.language + english.country, "English (United States)enUS");
    EXPECT_EQ(m_manager.setProductName("KESTRUM"), err::ResultCode{});
    EXPECT_EQ(m_manager.getTranslationCount(), 5);
    EXPECT_EQ(m_manager.setProductName("Other"), err::ResultCode{});
    EXPECT_EQ(m_manager.getTranslationCount(), 0);
    m_folder.write("other.langs.xml", "<locales><locale language='EN' country='us'/></locales>");
    EXPECT_EQ(m_manager.getTranslations(list), err::ResultCode{});
    EXPECT_EQ(list.size(), 1U);
}

TEST_F(StrBundleTrMgrTest, TellsWhyThereIsNoList)
{
    m_folder.write("kestrum.langs.xml", "<");
    EXPECT_EQ(m_manager.loadTranslation("fr", "FR", true), (err::ResultCode{5, 22112}));
    std::filesystem::remove(m_folder.file("kestrum.langs.xml"));
    EXPECT_EQ(m_manager.loadTranslation("de", "DE", true), (err::ResultCode{5, 41}));
    EXPECT_EQ(m_manager.getLanguage(), "de");
    EXPECT_EQ(StrBundleTrMgr<char>({}, {}).loadTranslation("de", "DE", true), (err::ResultCode{5, 630}));
}

TEST_F(StrBundleTrMgrTest, KeepsOnlySoManySourceTexts)
{
    std::string many;
    for (int i = 0; i < 25'001; ++i)
        many += "@begin@context*@src " + std::to_string(i) + "s@tr t@end";
    m_folder.write("fr.tr", many + "@begin@context A@src 0s@tr again@end");
    EXPECT_EQ(loadAndOpen("fr", "FR", true), "Open");
    EXPECT_EQ(m_manager.getString("", "24999s"), "t");
    EXPECT_EQ(m_manager.getString("", "25000s"), "25000s");
    EXPECT_EQ(m_manager.getString("A", "0s"), "again");
}

} // namespace
} // namespace quillon::i18n::internal
