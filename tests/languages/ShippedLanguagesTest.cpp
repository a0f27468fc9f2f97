// The translation files as they ship, through the program's own readers and its own start.

#include "app/StartLanguage.h"
#include "i18n/StrBundleTrMgr.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSet>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

namespace i18n = quillon::i18n;

/// How many source texts a file has, compared as the program compares them.
std::size_t sourcesIn(const std::string& name)
{
    QFile file(QCoreApplication::applicationDirPath() + "/languages/" + QString::fromStdString(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    QSet<QByteArray> sources;
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine())
        if (line.startsWith("@src "))
            sources.insert(line.trimmed().toLower());
    return static_cast<std::size_t>(sources.size());
}

TEST(ShippedLanguages, AreReadToTheLastText)
{
    loadStartLanguage(); // which also names the product, whose list it is
    auto& bundle = i18n::getStrBundleMgr();
    std::vector<i18n::internal::Translation<char>> list;
    ASSERT_TRUE(succeeded(bundle.getTranslations(list)));
    const QDir folder(QCoreApplication::applicationDirPath() + "/languages");
    EXPECT_EQ(list.size(), static_cast<std::size_t>(folder.entryList({"*.tr"}).size()) + 1);
    for (const auto& language : list) {
        i18n::internal::Locale<char> locale;
        EXPECT_TRUE(i18n::findLocale(locale, language.language, language.country)) << language.displayName;
        ASSERT_TRUE(succeeded(bundle.loadTranslation(language.language, language.country, true)));
        const bool english = language.language == "en";
        EXPECT_EQ(bundle.getItemCount(), english ? 0U : sourcesIn(language.file)) << language.displayName;
        EXPECT_EQ(bundle.getString("CMainWindow", "Exit") == "Exit", english) << language.displayName;
    }
}

TEST(ShippedLanguages, StartWithTheStoredOneOrEnglishAndLeaveTheStoreAlone)
{
    struct Start
    {
        QVariant stored;
        const char* language;
        const char* fileMenu;
    };
    for (const auto& [stored, language, fileMenu] :
         {Start{QVariant(), "en-US", "File"}, Start{1031, "de-DE", "Datei"}, Start{1032, "el-GR", "Αρχείο"},
          Start{1061, "et-EE", "File"}, Start{9999, "en-US", "File"}, Start{"Deutsch", "en-US", "File"}}) {
        CAppSettings().clear();
        if (stored.isValid())
            CAppSettings().setValue(thisapp::settings::LocaleId, stored);
        loadStartLanguage();
        const auto& bundle = i18n::getStrBundleMgr();
        EXPECT_EQ(bundle.getProductName(), "Kestrum");
        EXPECT_EQ(bundle.getLanguage() + '-' + bundle.getCountry(), language);
        EXPECT_EQ(bundle.getString("CMainWindow", "File"), fileMenu);
        EXPECT_EQ(CAppSettings().value(thisapp::settings::LocaleId.key), stored);
    }
}

} // namespace
