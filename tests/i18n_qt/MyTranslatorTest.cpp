#include "i18n_qt/MyTranslator.h"

#include "i18n/StrBundleTrMgr.h"
#include "support/CaseTable.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
namespace i18n = quillon::i18n;
namespace tests = quillon::tests;

TEST(MyTranslator, SpeaksForAnyClassAndFollowsTheTextsWithoutANewInstallation)
{
    // Beside the test program, which has its folder to itself.
    const fs::path folder = i18n::internal::languagesFolder();
    fs::create_directories(folder);
    std::ofstream(folder / "translator.langs.xml")
        << R"(<locales><locale language="de" country="DE" file="texts.tr"/></locales>)";
    EXPECT_TRUE(succeeded(i18n::getStrBundleMgr().setProductName("translator")));
    MyTranslator translator;
    QCoreApplication::installTranslator(&translator);
    for (const tests::CaseRow& row : tests::readCaseTable("i18n_qt/texts.txt")) {
        std::ofstream(folder / "texts.tr") << row[0];
        EXPECT_TRUE(succeeded(i18n::getStrBundleMgr().loadTranslation("de", "DE", true)));
        EXPECT_EQ(QCoreApplication::translate(row[1].c_str(), row[2].c_str(), nullptr, 7).toStdString(),
                  row[3]);
    }
    EXPECT_EQ(translator.translate("Form", nullptr), QString());
    QCoreApplication::removeTranslator(&translator);
    fs::remove_all(folder);
}

} // namespace
