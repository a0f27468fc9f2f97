#include "i18n_qt/MyTranslator.h"

#include "i18n/StrBundleTrMgr.h"

#include <QCoreApplication>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace i18n = quillon::i18n;
namespace fs = std::filesystem;

/// The translator, installed over the texts that the test gives in the translation file format.
class MyTranslatorTest : public testing::Test
{
protected:
    MyTranslatorTest()
    {
        fs::create_directories(folder);
        std::ofstream(folder / "translator.langs.xml")
            << R"(<locales><locale language="de" country="DE" file="texts.tr"/></locales>)";
        EXPECT_TRUE(succeeded(i18n::getStrBundleMgr().setProductName("translator")));
        load("");
        QCoreApplication::installTranslator(&translator);
    }
    ~MyTranslatorTest() override
    {
        QCoreApplication::removeTranslator(&translator);
        fs::remove_all(folder);
    }

    void load(const std::string& entries)
    {
        std::ofstream(folder / "texts.tr") << entries;
        EXPECT_TRUE(succeeded(i18n::getStrBundleMgr().loadTranslation("de", "DE", true)));
    }

    // Beside the test program, which has its folder to itself.
    const fs::path folder = i18n::internal::languagesFolder();
    MyTranslator translator;
};

TEST_F(MyTranslatorTest, AnswersTheSourceWhereNothingOrAnEmptyTextIsDefined)
{
    EXPECT_EQ(QCoreApplication::translate("Form", "Open"), "Open");
    load(R"(@begin @context Form @src Open @tr "" @end)");
    EXPECT_EQ(QCoreApplication::translate("Form", "Open"), "Open");
    EXPECT_EQ(translator.translate("Form", nullptr), QString());
}

TEST_F(MyTranslatorTest, BringsAnyScriptToTheCallerWhole)
{
    load("@begin @context Form @src Open @tr Άνοιγμα Ö 文 \xF0\x9F\x97\x8B @end");
    EXPECT_EQ(QCoreApplication::translate("Form", "open"),
              QString::fromUtf8("Άνοιγμα Ö 文 \xF0\x9F\x97\x8B"));
}

TEST_F(MyTranslatorTest, LeavesTheNumberOfAPluralToQt)
{
    load("@begin @context * @src %n file(s) @tr %n Dateien @end");
    EXPECT_EQ(QCoreApplication::translate("Form", "%n file(s)", nullptr, 7), "7 Dateien");
}

TEST_F(MyTranslatorTest, SpeaksForQtsOwnClassesAndFollowsTheTextsWithoutANewInstallation)
{
    EXPECT_EQ(QLineEdit::tr("&Copy"), "&Copy");
    load("@begin @context QLineEdit @src &Copy @tr &Kopieren @end");
    EXPECT_EQ(QLineEdit::tr("&Copy"), "&Kopieren");
    load("");
    EXPECT_EQ(QLineEdit::tr("&Copy"), "&Copy");
}

} // namespace
