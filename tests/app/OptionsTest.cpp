// What the options dialog does to the running program and to the next start. The program's translations lie
// beside this test program.

#include "app/MainWindowTest.h"
#include "app/StartLanguage.h"
#include "i18n_qt/MyTranslator.h"
#include "logger/Log.h"
#include "settings/SettingsKeys.h"
#include "ui/COptionsDialog.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <map>
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

    /// Selects the row of a combo box that begins with `text`, or writes it into a line edit.
    void enter(const char* name, const QString& text) const
    {
        auto& widget = reach<QWidget>(name);
        auto* const combo = qobject_cast<QComboBox*>(&widget);
        if (auto* const edit = qobject_cast<QLineEdit*>(&widget)) {
            edit->selectAll();
            return typeInto(*edit, text);
        }
        // The last row without touching those between: the system's proxy would be asked for on the way.
        const int row = combo->findText(text, Qt::MatchStartsWith);
        QTest::keyClick(combo, row == combo->count() - 1 ? Qt::Key_End : Qt::Key_Home);
        while (combo->currentIndex() < row)
            QTest::keyClick(combo, Qt::Key_Down);
    }

    /// What the control shows, a check mark as "true".
    QString shown(const char* name) const
    {
        const auto& widget = reach<QWidget>(name);
        const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
        return button == nullptr
                   ? widget.property(widget.inherits("QComboBox") ? "currentText" : "text").toString()
                   : QVariant(button->isChecked()).toString();
    }

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

using Stored = std::map<QString, QString>;

Stored allStored()
{
    Stored values;
    const CAppSettings store;
    for (const QString& key : store.allKeys())
        values[key] = store.value(key).toString();
    return values;
}

struct Change
{
    const char* control;
    const char* input; ///< the row or the text; null for a click
    Stored stored;     ///< what OK then stores otherwise than before
};

// What no control changes stays as OK has stored it before, each setting by itself.
TEST_F(OptionsTest, ThatAreConfirmedAreStoredEachByItselfAndShownAgain)
{
    const Change changes[] = {
        {"checkBoxIntergaretToContextMenu", nullptr, {{settings::IntegrateToShellContextMenu, "false"}}},
        {"checkBoxAddSendTo", nullptr, {{settings::AddToSendMenu, "false"}}},
        {"comboBoxLanguage", "Deutsch", {{settings::LocaleId, "1031"}}},
        {"comboBoxDefaultAlg",
         "Skein1024-1024",
         {{settings::DefaultCryptoLibrary, "300"}, {settings::DefaultCryptoHashAlgorithm, "110"}}},
        {"checkBoxSetDefaultAlg", nullptr, {{settings::UseDefaultAlgorithmAtStarting, "false"}}},
        {"radioButtonAutocopyHex", nullptr, {{settings::WhatCopyToClipboard, "2"}}},
        {"radioButtonAutocopyBase64", nullptr, {{settings::WhatCopyToClipboard, "4"}}},
        {"comboBoxLogLevel", "WARNING", {{settings::LogLevel, "3"}}},
        {"checkBoxUseLogFile", nullptr, {{settings::UseLogFile, "true"}}},
        {"comboBoxProxyConfigType", "Manual", {{settings::NetProxySelectType, "2"}}},
        {"lineEditProxyAddress", "proxy.example", {{settings::NetProxyServer, "proxy.example"}}},
        {"lineEditProxyPort", "3128", {{settings::NetProxyPort, "3128"}}},
        {"lineEditProxyLogin", "ada", {{settings::NetProxyLogin, "ada"}}},
    };
    for (const Change& change : changes) {
        SCOPED_TRACE(change.control);
        CAppSettings().clear();
        // The fields of the proxy can be written in only in this mode.
        CAppSettings().setValue(settings::NetProxySelectType,
                                QByteArray(change.control).startsWith("lineEdit") ? 2 : 0);
        loadStartLanguage();
        MainWindowDriver driver;
        ASSERT_TRUE(openOptions(driver, [](OptionsUser user) { user.click("buttonOk"); }));
        Stored expected = allStored();
        QString entered;
        ASSERT_TRUE(openOptions(driver, [&](OptionsUser user) {
            change.input == nullptr ? user.click(change.control) : user.enter(change.control, change.input);
            entered = user.shown(change.control);
            user.click("buttonOk");
        }));
        for (const auto& [key, value] : change.stored)
            expected[key] = value;
        EXPECT_EQ(allStored(), expected);
        loadStartLanguage();
        MainWindowDriver next;
        EXPECT_TRUE(openOptions(next, [&](OptionsUser user) {
            EXPECT_EQ(user.shown(change.control), entered);
            user.click("buttonCancel");
        }));
    }
}

TEST_F(OptionsTest, ThatAreConfirmedGovernTheWindowAndTheNextStart)
{
    const QString file = write("letters", "abc");
    {
        MainWindowDriver driver({file});
        ASSERT_EQ(shown(driver, "actionHash_Calculate"), "Calculate");
        ASSERT_TRUE(openOptions(driver, [](OptionsUser user) {
            user.enter("comboBoxLanguage", "Deutsch");
            user.enter("comboBoxDefaultAlg", "MD5");
            user.enter("comboBoxLogLevel", "TRACE");
            user.click("checkBoxUseLogFile");
            user.enter("comboBoxProxyConfigType", "Manual");
            user.enter("lineEditProxyAddress", " proxy.example ");
            user.enter("lineEditProxyPassword", "ex:ample word");
            user.click("buttonOk");
        }));
        EXPECT_EQ(shown(driver, "actionHash_Calculate"), "Berechnen");
        EXPECT_TRUE(driver.details().startsWith("Dateigröße:")) << driver.details().toStdString();
        EXPECT_EQ(driver.window().windowTitle(), driver.window().getProductTitle());
        EXPECT_TRUE(driver.run());
        EXPECT_EQ(driver.hex(), "900150983CD24FB0D6963F7D28E17F72"); // RFC 1321, A.5
    }
    EXPECT_EQ(stored(settings::NetProxyServer).toString(), "proxy.example") << "without its blanks";
    EXPECT_GT(stored(settings::NetProxyPassword).toString().size(), 100);
    for (const auto& [key, value] : allStored())
        EXPECT_FALSE(value.contains("ex:ample")) << key.toStdString();

    MainWindowDriver next({file});
    EXPECT_TRUE(next.child<QComboBox>("comboBoxSelectAlg").currentText().startsWith("MD5"));
    QFile log(next.window().getLogFilePath());
    EXPECT_TRUE(waitFor([&log] { return log.exists() && log.size() > 0; }));
    EXPECT_TRUE(openOptions(next, [](OptionsUser user) {
        EXPECT_EQ(user.reach<QLineEdit>("lineEditProxyPassword").text(), "ex:ample word");
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
        user.enter("comboBoxLanguage", "Русский");
        user.click("buttonApply");
        EXPECT_EQ(user.reach<QPushButton>("buttonCancel").text(), "Отмена");
        user.enter("comboBoxLanguage", "Deutsch");
        user.enter("comboBoxLogLevel", "TRACE");
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
        store.setValue(settings::DefaultCryptoHashAlgorithm, 105); // of the other library
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
        return text.indexOf("Finish ...", text.lastIndexOf("File logger was started.")) >= 0;
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
