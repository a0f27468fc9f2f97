// The window in a language that is written from right to left.

#include "app/MainWindowTest.h"
#include "app/StartLanguage.h"
#include "i18n_qt/MyTranslator.h"
#include "ui/SAppOptions.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QTransform>

namespace quillon::tests {
namespace {

void putBytes(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

struct RightToLeft : MainWindowTest
{
    /// A list of two such languages, Persian with one text and Urdu whose texts are missing.
    RightToLeft()
    {
        QFile::rename(list, list + ".away");
        putBytes(list, R"(<locales><locale language="en" country="US" filetype="translations"/>
            <locale language="fa" country="IR" filetype="translations" file="fa.x"/>
            <locale language="ur" country="PK" filetype="translations" file="ur.x"/></locales>)");
        putBytes(languages + "fa.x", "@begin\n@context CMainWindow\n@src File size:\n@tr \xD8\xAD\n@end\n");
        QCoreApplication::installTranslator(&translator);
        loadStartLanguage();
    }
    ~RightToLeft() override
    {
        QFile::remove(list);
        QFile::rename(list + ".away", list);
        QFile::remove(languages + "fa.x");
        loadStartLanguage();
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    }

    static void choose(MainWindowDriver& driver, std::uint32_t localeId)
    {
        thisapp::SAppOptions options;
        options.localeId = localeId;
        driver.window().onAppOptionsChanged(options);
    }

    /// What a reader of Persian sees.
    static void expectTurned(MainWindowDriver& driver)
    {
        EXPECT_TRUE(driver.child<QWidget>("toolBar").isRightToLeft());
        EXPECT_EQ(driver.details().section('\n', 0, 0), QStringLiteral("\u062D \u20663B\u2069"));
        const QString sheet = driver.child<QComboBox>("comboBoxSelectAlg").styleSheet();
        for (const char* rule :
             {"1px 3px 1px 18px;", "border-right-width:", "bottom-left-radius:", " top right;"})
            EXPECT_TRUE(sheet.contains(rule)) << rule;
        for (const char* name : {"plainTextEditHashHex", "plainTextEditHashBase64", "lineEditInput"})
            EXPECT_TRUE(driver.child<QWidget>(name).isLeftToRight()) << name;
        const QImage leftwards = QIcon(":/kestrum/exit.ico").pixmap(32).toImage();
        EXPECT_EQ(driver.child<QAction>("actionFile_Exit").icon().pixmap(32).toImage(),
                  leftwards.transformed(QTransform::fromScale(-1, 1)));
        EXPECT_TRUE(driver.run());
        EXPECT_EQ(driver.caption(), QStringLiteral("Calculated hash for the file (\u2066SHA-256\u2069)"));
        driver.click("buttonCopyHashHex");
        EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
                  "BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD"); // FIPS 180-2
    }

    const QString languages = QCoreApplication::applicationDirPath() + "/languages/";
    const QString list = languages + "kestrum.langs.xml";
    MyTranslator translator;
};

TEST_F(RightToLeft, TheWindowTurnsAtAChangeOfLanguageAndAtTheStartButNotItsPathsAndDigests)
{
    constexpr std::uint32_t kPersian = 1065;
    const QStringList arguments{write("letters", "abc")};
    MainWindowDriver driver(arguments);
    const QString sheet = driver.child<QComboBox>("comboBoxSelectAlg").styleSheet();
    choose(driver, kPersian);
    expectTurned(driver);
    loadStartLanguage();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    MainWindowDriver started(arguments);
    expectTurned(started);
    choose(started, i18n::kDefaultLocaleId);
    EXPECT_TRUE(started.window().isLeftToRight());
    EXPECT_EQ(started.details().section('\n', 0, 0), "File size: 3B");
    EXPECT_EQ(started.child<QComboBox>("comboBoxSelectAlg").styleSheet(), sheet);
    started.window().onLocaleChanged("ur", "PK", 0);
    EXPECT_TRUE(started.window().isLeftToRight()) << "as its texts are missing";
}

} // namespace
} // namespace quillon::tests
