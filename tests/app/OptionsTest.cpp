// What the options dialog does to the running program and to the next start. The program's translations lie
// beside this test program.

#include "app/MainWindowTest.h"
#include "app/StartLanguage.h"
#include "i18n_qt/MyTranslator.h"
#include "logger/Log.h"
#include "settings/SettingsKeys.h"
#include "ui/COptionsDialog.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <random>

namespace quillon::tests {
namespace {

namespace settings = thisapp::settings;
using thisapp::SAppOptions;

constexpr std::uint32_t kEnglish = 1033;
constexpr std::uint32_t kGerman = 1031;
constexpr std::uint32_t kRussian = 1049;

/// The hands of the dialog's user.
struct OptionsUser
{
    explicit OptionsUser(QDialog& shown)
        : dialog(shown)
    {
    }

    template <class Widget>
    Widget& reach(const char* name) const
    {
        auto* const widget = dialog.findChild<Widget*>(QString::fromLatin1(name));
        auto* const tabs = dialog.findChild<QTabWidget*>("tabWidget");
        for (int tab = 0; tab < tabs->count(); ++tab)
            if (tabs->widget(tab)->isAncestorOf(widget))
                tabs->setCurrentIndex(tab);
        return *widget;
    }

    void click(const char* button) const
    {
        auto& widget = reach<QWidget>(button);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, {10, widget.height() / 2});
    }

    void choose(const char* comboBox, const QString& row) const
    {
        auto& combo = reach<QComboBox>(comboBox);
        QTest::keyClick(&combo, Qt::Key_Home);
        for (int step = 1; step < combo.count() && !combo.currentText().startsWith(row); ++step)
            QTest::keyClick(&combo, Qt::Key_Down);
    }

    void type(const char* lineEdit, const QString& text) const { typeInto(reach<QLineEdit>(lineEdit), text); }

    QDialog& dialog;
};

QString shown(const MainWindowDriver& driver, const char* action)
{
    return driver.child<QAction>(action).text();
}

QVariant stored(const QString& key)
{
    return CAppSettings().value(key);
}

/// On Unix; elsewhere always the same.
int threadCount()
{
    return static_cast<int>(QDir("/proc/self/task").count());
}

class OptionsTest : public MainWindowTest
{
protected:
    OptionsTest()
    {
        // As the program does before its window.
        loadStartLanguage();
        QCoreApplication::installTranslator(&m_translator);
    }

    static SAppOptions optionsOf(std::uint32_t localeId)
    {
        SAppOptions options;
        options.localeId = localeId;
        options.logLevel = 0;
        options.shellContextMenu = options.sendToLink = false;
        return options;
    }

    static bool openOptions(MainWindowDriver& driver, const std::function<void(OptionsUser)>& use)
    {
        const DialogAnswer answer([&use](QDialog& dialog) { use(OptionsUser(dialog)); });
        driver.clickToolButton("actionTools_Options");
        return answer.isGiven();
    }

private:
    MyTranslator m_translator;
};

TEST_F(OptionsTest, ThatAreConfirmedGovernTheWindowTheSettingsAndTheNextStart)
{
    const QString file = write("letters", "abc");
    {
        MainWindowDriver driver({file});
        ASSERT_EQ(shown(driver, "actionHash_Calculate"), "Calculate");
        ASSERT_TRUE(openOptions(driver, [](OptionsUser user) {
            user.click("checkBoxIntergaretToContextMenu");
            user.click("checkBoxAddSendTo");
            user.choose("comboBoxLanguage", "Deutsch");
            user.choose("comboBoxDefaultAlg", "MD5");
            user.click("radioButtonAutocopyHex");
            user.choose("comboBoxLogLevel", "TRACE");
            user.click("checkBoxUseLogFile");
            user.choose("comboBoxProxyConfigType", "Manual");
            user.type("lineEditProxyAddress", " proxy.example ");
            user.type("lineEditProxyPort", "3128");
            user.type("lineEditProxyLogin", "ada");
            user.type("lineEditProxyPassword", "ex:ample word");
            user.click("buttonOk");
        }));
        EXPECT_EQ(shown(driver, "actionHash_Calculate"), "Berechnen");
        EXPECT_TRUE(driver.details().startsWith("Dateigröße:")) << driver.details().toStdString();
        EXPECT_EQ(driver.window().windowTitle(), driver.window().getProductTitle());
        EXPECT_TRUE(driver.run());
        EXPECT_EQ(driver.hex(), "900150983CD24FB0D6963F7D28E17F72"); // RFC 1321, A.5
    }
    EXPECT_EQ(stored(settings::LocaleId).toUInt(), kGerman);
    EXPECT_EQ(stored(settings::DefaultCryptoHashAlgorithm).toInt(), 303);
    EXPECT_EQ(stored(settings::WhatCopyToClipboard).toInt(), settings::kCopyHex);
    EXPECT_FALSE(stored(settings::IntegrateToShellContextMenu).toBool());
    EXPECT_FALSE(stored(settings::AddToSendMenu).toBool());
    EXPECT_EQ(stored(settings::NetProxyServer).toString(), "proxy.example");
    EXPECT_EQ(stored(settings::NetProxySelectType).toInt(), 2);
    EXPECT_GT(stored(settings::NetProxyPassword).toString().size(), 100);
    for (const QString& key : CAppSettings().allKeys())
        EXPECT_FALSE(stored(key).toString().contains("ex:ample")) << key.toStdString();

    MainWindowDriver next({file});
    EXPECT_TRUE(next.child<QComboBox>("comboBoxSelectAlg").currentText().startsWith("MD5"));
    QFile log(next.window().getLogFilePath());
    EXPECT_TRUE(waitFor([&log] { return log.exists() && log.size() > 0; }));
    EXPECT_TRUE(openOptions(next, [](OptionsUser user) {
        EXPECT_EQ(user.reach<QLineEdit>("lineEditProxyPassword").text(), "ex:ample word");
        EXPECT_EQ(user.reach<QComboBox>("comboBoxLanguage").currentText(), "Deutsch");
        EXPECT_EQ(user.reach<QLabel>("labelLogLevel").text(), "Protokollstufe:");
        user.click("buttonCancel");
    }));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_FALSE(log.readAll().contains("ex:ample word"));
}

TEST_F(OptionsTest, ThatAreAppliedStayWhereTheDialogIsCancelledAfterwards)
{
    MainWindowDriver driver;
    ASSERT_TRUE(openOptions(driver, [](OptionsUser user) {
        user.choose("comboBoxLanguage", "Русский");
        user.click("buttonApply");
        EXPECT_EQ(user.reach<QPushButton>("buttonCancel").text(), "Отмена");
        user.choose("comboBoxLanguage", "Deutsch");
        user.choose("comboBoxLogLevel", "TRACE");
        user.click("buttonCancel");
    }));
    EXPECT_EQ(shown(driver, "actionHash_Calculate"), "Вычислить");
    EXPECT_EQ(stored(settings::LocaleId).toUInt(), kRussian);
    EXPECT_EQ(stored(settings::LogLevel).toInt(), 0);
}

TEST_F(OptionsTest, OfBadSettingsShowTheirSubstitutes)
{
    {
        CAppSettings store;
        store.setValue(settings::LocaleId, 9999);
        store.setValue(settings::DefaultCryptoLibrary, 1);
        store.setValue(settings::DefaultCryptoHashAlgorithm, 105);
        store.setValue(settings::WhatCopyToClipboard, 3);
        store.setValue(settings::LogLevel, 7);
        store.setValue(settings::UseLogFile, "perhaps");
        store.setValue(settings::NetProxyPort, "many");
        store.setValue(settings::NetProxyPassword, " 0123456789abc ");
        store.setValue(settings::NetProxySelectType, 3);
    }
    MainWindowDriver driver;
    EXPECT_TRUE(openOptions(driver, [](OptionsUser user) {
        EXPECT_EQ(user.reach<QComboBox>("comboBoxLanguage").currentText(), "English");
        EXPECT_TRUE(user.reach<QComboBox>("comboBoxDefaultAlg").currentText().startsWith("SHA-256"));
        EXPECT_TRUE(user.reach<QAbstractButton>("radioButtonAutocopyNothing").isChecked());
        EXPECT_EQ(user.reach<QComboBox>("comboBoxLogLevel").currentText(), "OFF");
        EXPECT_EQ(user.reach<QLineEdit>("lineEditProxyPort").text(), "0");
        EXPECT_EQ(user.reach<QLineEdit>("lineEditProxyPassword").text(), "0123456789abc");
        EXPECT_EQ(user.reach<QComboBox>("comboBoxProxyConfigType").currentIndex(), 0);
        user.click("buttonCancel");
    }));
}

TEST_F(OptionsTest, ChangeAThousandTimesInAnyOrderWhileRunsGoOnAndWindowsClose)
{
    constexpr int kChanges = 1000;
    constexpr int kChangesPerWindow = 50;
    const QString file = write("blocks", blocksOfBytes(16));
    std::mt19937 random(20261123);
    const int threads = threadCount();
    const auto oneOf = [&random](auto... values) {
        const std::array choices{values...};
        return choices.at(random() % choices.size());
    };
    for (int change = 0; change < kChanges;) {
        MainWindowDriver driver({file});
        for (int step = 0; step < kChangesPerWindow; ++step, ++change) {
            SAppOptions options = optionsOf(oneOf(kEnglish, kGerman, kEnglish, kEnglish));
            options.logLevel = oneOf(0, 2, 5, 6);
            options.useLogFile = oneOf(true, false);
            driver.window().onAppOptionsChanged(options);
            driver.press(oneOf(Qt::Key_F5, Qt::Key_F8));
            logger::log(logger::ELogLevel::Error, "test", [](auto& record) { record << "line"; });
            QCoreApplication::processEvents();
            ASSERT_EQ(shown(driver, "actionHash_Calculate"),
                      options.localeId == kGerman ? "Berechnen" : "Calculate");
        }
        driver.press(Qt::Key_F5);
        driver.window().close();
    }
    EXPECT_TRUE(waitFor([threads] { return threadCount() <= threads; }));
}

TEST_F(OptionsTest, OfFilesThatCannotBeReadAreTheDefaultsOfAUsableWindow)
{
    const QString store = CAppSettings().fileName();
    const std::pair<QByteArray, bool> files[] = {
        {"", true},
        {QByteArrayLiteral("[Gen\0eral\nLocaleId=\n=\n\xFF\xFE[[["), true},
        {"LocaleId=1033", false}};
    for (const auto& [bytes, isWritable] : files) {
        QFile file(store);
        ASSERT_TRUE(!store.endsWith(".conf") || file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        QFile::setPermissions(store, isWritable ? QFile::ReadOwner | QFile::WriteOwner : QFile::ReadOwner);
        loadStartLanguage();
        MainWindowDriver driver({write("letters", "abc")});
        EXPECT_TRUE(driver.run());
        EXPECT_EQ(driver.hex(), sha256Hex("abc"));
        EXPECT_EQ(shown(driver, "actionHash_Calculate"), "Calculate");
    }
    QFile::remove(store);
}

TEST_F(OptionsTest, OfTheLogShowInItHowTheProgramStartsAndEnds)
{
    CAppSettings().setValue(settings::LogLevel, 6);
    CAppSettings().setValue(settings::UseLogFile, true);
    MainWindowDriver driver({write("letters", "abc"), "-start"});
    driver.window().close();
    QFile log(driver.window().getLogFilePath());
    QByteArray text;
    ASSERT_TRUE(waitFor([&] {
        log.close();
        text = log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
        return text.contains("Finish ...");
    })) << text.toStdString();
    int place = text.lastIndexOf("File logger was started.");
    for (const char* next : {"Start ...", "Try to process command line: ", "Finish ..."}) {
        const int found = text.indexOf(next, place);
        EXPECT_GT(found, place) << next;
        place = found;
    }
}

} // namespace
} // namespace quillon::tests
