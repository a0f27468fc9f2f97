// What the options dialog does to the running program, to the settings and to the next start. The program's
// translations lie beside this test program, and a helper library that writes down its calls.

#include "app/MainWindowTest.h"
#include "app/OptionsUser.h"
#include "app/StartLanguage.h"
#include "i18n/StrBundleTrMgr.h"
#include "i18n_qt/MyTranslator.h"
#include "logger/Log.h"
#include "platform/qt/UserPlaces.h"
#include "support/CaseTable.h"
#include "support/UrlDesktop.h"
#include "ui/CSelectAlgorithmDialog.h"
#include "vars/Product.h"

#include <QAccessible>
#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLibrary>
#include <QListWidget>
#include <QTableWidget>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <thread>
#include <utility>

namespace quillon::tests {
namespace {

using thisapp::SAppOptions;

constexpr std::uint32_t kEnglish = 1033;
constexpr std::uint32_t kGerman = 1031;

using Stored = std::map<std::string, std::string>;

Stored allStored()
{
    constexpr int kShortestCipherText = 100;
    Stored values;
    const CAppSettings store;
    for (const QString& key : store.allKeys()) {
        const QString value = store.value(key).toString();
        const bool isCipherText = key == "NetProxyPassword" && value.size() > kShortestCipherText;
        values[key.toStdString()] = isCipherText ? "enciphered" : value.toStdString();
    }
    return values;
}

/// Writes over `values` what `text` says, as in "Key=value;Key=value".
void putInto(Stored& values, const std::string& text)
{
    for (const QString& pair : QString::fromStdString(text).split(';'))
        values[pair.section('=', 0, 0).toStdString()] = pair.section('=', 1).toStdString();
}

QByteArray bytesOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The functions of the helper library that were called since the last question.
std::string takeHelperCalls()
{
    static QLibrary helper(QCoreApplication::applicationDirPath() + "/QxShellHelper");
    std::wstring& calls = *reinterpret_cast<std::wstring* (*)()>(helper.resolve("recordedCalls"))();
    return QString::fromStdWString(std::exchange(calls, {}))
        .remove(QRegularExpression("[|][^\n]*"))
        .toStdString();
}

void logLine(const std::string& text)
{
    logger::log(logger::ELogLevel::Error, "test", [&text](auto& record) { record << text; });
}

SAppOptions optionsOf(std::uint32_t localeId, std::int32_t logLevel, bool useLogFile)
{
    SAppOptions options;
    options.localeId = localeId;
    options.logLevel = logLevel;
    options.useLogFile = useLogFile;
    return options;
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

    static std::string calculate(const MainWindowDriver& driver)
    {
        return driver.child<QAction>("actionHash_Calculate").text().toStdString();
    }

    /// Opens the dialog, lets `use` do something in it and then clicks `button`.
    static void useOptions(MainWindowDriver& driver, const char* button,
                           const std::function<void(const OptionsUser&)>& use)
    {
        const DialogAnswer answer([&](QDialog& dialog) {
            const OptionsUser user{dynamic_cast<COptionsDialog&>(dialog)};
            use(user);
            user.click(button);
            if (dialog.isVisible()) // after Apply
                user.click("buttonCancel");
        });
        driver.clickToolButton("actionTools_Options");
        ASSERT_TRUE(answer.isGiven());
    }

private:
    MyTranslator m_translator;
};

// What no control changes is stored as it was, each setting by itself. What OK has stored is shown after the
// next start, and Apply stores it again.
TEST_F(OptionsTest, ThatAreConfirmedOrAppliedAreStoredEachByItselfAndShownAgain)
{
    std::string defaults;
    for (const CaseRow& row : readCaseTable("app/options.txt")) {
        if (row.size() == 1) {
            defaults = row[0];
            continue;
        }
        SCOPED_TRACE(inBrackets(row));
        const char* const control = row[0].c_str();
        CAppSettings().clear();
        CAppSettings().setValue("NetProxyType", 20); // has no control
        Stored expected;
        putInto(expected, defaults);
        if (row[0].starts_with("lineEdit")) { // can be written in only in this mode
            CAppSettings().setValue("NetProxySelectType", 2);
            expected["NetProxySelectType"] = "2";
        }
        putInto(expected, row[2]);
        loadStartLanguage();
        MainWindowDriver driver;
        useOptions(driver, "buttonOk", [&](const OptionsUser& user) { user.enter(control, row[1].c_str()); });
        EXPECT_EQ(allStored(), expected);
        loadStartLanguage();
        MainWindowDriver next;
        useOptions(next, "buttonApply", [&](const OptionsUser& user) {
            EXPECT_EQ(user.shown(control), row[3]);
            CAppSettings().clear();
        });
        EXPECT_EQ(allStored(), expected);
    }
}

TEST_F(OptionsTest, OfBadSettingsShowTheirSubstitutesAndLeaveThemInTheStore)
{
    for (const CaseRow& row : readCaseTable("app/bad-options.txt")) {
        SCOPED_TRACE(inBrackets(row));
        CAppSettings().clear();
        CAppSettings().setValue(row[0].c_str(), row[1].c_str());
        loadStartLanguage();
        MainWindowDriver driver;
        driver.window().setProxySelectType(web::EProxySelectType::Manual);
        useOptions(driver, "buttonCancel",
                   [&](const OptionsUser& user) { EXPECT_EQ(user.shown(row[2].c_str()), row[3]); });
        EXPECT_EQ(allStored(), (Stored{{row[0], row[1]}}));
        EXPECT_EQ(calculate(driver), "Calculate");
    }
}

TEST_F(OptionsTest, KeepALanguageThatTheListNoLongerHas)
{
    CAppSettings().setValue("LocaleId", 1061); // Estonian
    MainWindowDriver driver;
    useOptions(driver, "buttonOk", [](const OptionsUser&) {});
    EXPECT_EQ(allStored()["LocaleId"] + calculate(driver), "1061Calculate");
}

TEST_F(OptionsTest, ThatAreConfirmedGovernTheWindow)
{
    MainWindowDriver driver({write("letters", "abc")});
    ASSERT_EQ(calculate(driver), "Calculate");
    useOptions(driver, "buttonOk", [](const OptionsUser& user) {
        user.enter("comboBoxLanguage", "Deutsch");
        user.enter("comboBoxDefaultAlg", "MD5");
        user.enter("comboBoxLogLevel", "TRACE");
        user.click("checkBoxUseLogFile");
        user.enter("comboBoxProxyConfigType", "Manual");
        user.enter("lineEditProxyPassword", "ex:ample word");
    });
    EXPECT_EQ(calculate(driver), "Berechnen");
    EXPECT_EQ(driver.child<QLabel>("labelSelectAlg").text(), "Algorithmus:");
    EXPECT_TRUE(driver.details().startsWith("Dateigröße:")) << driver.details().toStdString();
    EXPECT_EQ(driver.window().windowTitle(), driver.window().getProductTitle());
    EXPECT_TRUE(driver.run());
    EXPECT_EQ(driver.hex(), "900150983CD24FB0D6963F7D28E17F72"); // RFC 1321, A.5
    driver.window().close();
    const QString log = driver.window().getLogFilePath();
    EXPECT_TRUE(waitFor([&log] { return bytesOf(log).contains("Finish ..."); }));
    EXPECT_FALSE(bytesOf(log).contains("ex:ample word"));
}

TEST_F(OptionsTest, ThatAreAppliedStayAndTheStoredLanguageComesIntoForceWhereAnotherIsCancelled)
{
    MainWindowDriver driver;
    useOptions(driver, "buttonCancel", [](const OptionsUser& user) {
        user.enter("comboBoxLanguage", "Русский");
        user.click("buttonApply");
        EXPECT_EQ(user.shown("buttonCancel"), "Отмена");
        user.enter("comboBoxLanguage", "Deutsch");
        user.enter("comboBoxLogLevel", "TRACE");
    });
    EXPECT_EQ(calculate(driver), "Вычислить");
    EXPECT_EQ(allStored()["LocaleId"] + ' ' + allStored()["LogLevel"], "1049 0");
    CAppSettings().setValue("LocaleId", kGerman); // by somebody else
    useOptions(driver, "buttonCancel",
               [](const OptionsUser& user) { user.enter("comboBoxLanguage", "English"); });
    useOptions(driver, "buttonCancel", [](const OptionsUser& user) {
        EXPECT_EQ(user.shown("labelLogLevel") + user.shown("comboBoxLanguage"), "Protokollstufe:Deutsch");
    });
}

TEST_F(OptionsTest, OfTheDesktopActAtTheStartAndWhereOneOfTheTwoChanges)
{
    const std::string remove = "removeShellContextMenuForUserT\n";
    const std::string removal = remove + remove + remove + remove;
    const std::string renewal = removal + "createShellContextMenuForUserT\n";
    takeHelperCalls();
    MainWindowDriver driver;
    EXPECT_EQ(takeHelperCalls(), renewal + "createShellLinkW\n");
    for (const auto& [control, calls] : {std::pair{"checkBoxUseLogFile", std::string()},
                                         {"checkBoxAddSendTo", renewal},
                                         {"checkBoxIntergaretToContextMenu", removal}}) {
        useOptions(driver, "buttonOk", [box = control](const OptionsUser& user) { user.click(box); });
        EXPECT_EQ(takeHelperCalls(), calls) << control;
    }
    driver.window().onAppOptionsChanged(optionsOf(kGerman, 0, false));
    EXPECT_EQ(takeHelperCalls(), renewal + renewal) << "the entry's text, and its box";
    const std::filesystem::path link =
        platform::sendToLinkPath(vars::kProductName, vars::kProductGuid).toStdU16String();
    std::filesystem::create_directories(link.parent_path());
    std::ofstream(link).close();
    CAppSettings().setValue("AddToSendMenu", false);
    const MainWindowDriver next;
    EXPECT_EQ(takeHelperCalls(), renewal);
    EXPECT_FALSE(std::filesystem::exists(link));
}

struct Listener final : i18n::internal::ILocaleCallback<char>
{
    void onLocaleChanged(const std::string& language, const std::string& country, long value) override
    {
        heard += ", heard " + language + '-' + country + ' ' + std::to_string(value);
    }
    std::string heard;
};

TEST_F(OptionsTest, OfTheLanguageChangeWithItsTextsItsStoredIdAndItsListenersOrNotAtAll)
{
    MainWindowDriver driver;
    CMainWindow& window = driver.window();
    const auto& texts = i18n::getStrBundleMgr();
    const QString list = QCoreApplication::applicationDirPath() + "/languages/kestrum.langs.xml";
    Listener listener;
    static_cast<void>(window.addCallback(&window)); // would not end if it heard of its own changes
    static_cast<void>(window.addCallback(&listener));
    for (const CaseRow& row : readCaseTable("app/language-changes.txt")) {
        if (row.size() == 1) {
            QFile::rename(list, list + ".away");
            continue;
        }
        window.onLocaleChanged(row[0], row[1], 7);
        i18n::internal::Locale<char> locale;
        window.getLocale(locale);
        EXPECT_EQ(locale.localeName + ", " + texts.getLanguage() + '-' + texts.getCountry() + ", " +
                      window.getString("CMainWindow", "Calculate") + ", " +
                      CAppSettings().value("LocaleId", "none").toString().toStdString() +
                      std::exchange(listener.heard, {}),
                  row[2])
            << inBrackets(row);
    }
    QFile::rename(list + ".away", list);
}

TEST_F(OptionsTest, OfTheAlgorithmAreTheRowsOfTheTableInToolBarAndDialogs)
{
    MainWindowDriver driver;
    CSelectAlgorithmDialog dialog;
    dialog.setHashAlgProvider(&driver.window());
    dialog.show();
    auto& list = *dialog.findChild<QListWidget*>();
    const auto& label = *dialog.findChild<QLabel*>("labelSelectAlg");
    EXPECT_EQ(label.text(), "Algorithm: SHA-256");
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(label.text(), "Algorithm: SHA-384");
    auto& toolBar = driver.child<QComboBox>("comboBoxSelectAlg");
    std::vector<CaseRow> rows;
    for (int row = 0; row < toolBar.count() && row < list.count(); ++row)
        rows.push_back({toolBar.itemText(row).toStdString(), list.item(row)->text().toStdString()});
    EXPECT_EQ(rows, readCaseTable("app/algorithm-list.txt"));
}

TEST_F(OptionsTest, HaveNamedFieldsPagesThatFillOnceAndLinksThatOpenTheirAddresses)
{
    UrlDesktop desktop;
    MainWindowDriver driver;
    const QString logs = QFileInfo(driver.window().getLogFilePath()).absolutePath();
    QDir(logs).removeRecursively();
    const auto follow = [](const OptionsUser& user) {
        for (const char* name : {"labelHomePageUrl", "labelEmailUrl", "labelDonateUrl", "labelViewLogFile"})
            user.click(name);
    };
    useOptions(driver, "buttonCancel", [&follow](const OptionsUser& user) {
        for (const char* kind : {"QComboBox", "QLineEdit", "QTableWidget"})
            for (auto* field : user.dialog.findChildren<QWidget*>())
                EXPECT_TRUE(!field->inherits(kind) ||
                            !QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name).isEmpty())
                    << field->objectName().toStdString() << " has no name for screen readers";
        EXPECT_EQ(
            QAccessible::queryAccessibleInterface(&user.reach("comboBoxLogLevel"))->text(QAccessible::Name),
            "Logger level:");
        EXPECT_EQ(user.reach<QTableWidget>("tableWidgetShortcutKeys").currentRow(), 1);
        EXPECT_EQ(user.shown("labelHomePage") + user.shown("labelDonate"),
                  "Kestrum home page:Donate to the Kestrum:");
        EXPECT_NE(user.shown("lineEditLogFile").find("kestrum.log"), std::string::npos);
        follow(user);
        user.click("buttonApply");
        QShowEvent shownAgain;
        QCoreApplication::sendEvent(&user.dialog, &shownAgain);
        EXPECT_EQ(user.shown("labelVersion"), "Kestrum") << "the form's own text, which Apply brings back";
    });
    QList<QUrl> expected{QUrl("https://kestrum.quillon.example/"),
                         QUrl("mailto:support@quillon.example?subject=Kestrum"),
                         QUrl("https://kestrum.quillon.example/donate")};
    EXPECT_EQ(desktop.opened, expected);
    driver.window().onAppOptionsChanged(optionsOf(kEnglish, 0, true));
    useOptions(driver, "buttonCancel", follow);
    EXPECT_EQ(desktop.opened.mid(3), expected << QUrl::fromLocalFile(logs)) << "once there is a log";
}

TEST_F(OptionsTest, ChangeAHundredTimesInAnyOrderWhileRunsGoOnOthersLogAndWindowsClose)
{
    std::mt19937 random(20261123);
    const QString file = write("blocks", blocksOfBytes(16));
    for (int window = 0; window < 4; ++window) {
        MainWindowDriver driver({file});
        for (int change = 0; change < 25; ++change) {
            const auto number = random();
            const bool isGerman = number % 4 == 0;
            const std::jthread other([&driver] {
                for (int line = 0; line < 4; ++line)
                    logLine(driver.window().getString("x", "Open"));
            });
            driver.window().onAppOptionsChanged(optionsOf(isGerman ? kGerman : kEnglish,
                                                          static_cast<std::int32_t>(number / 4 % 7),
                                                          number / 32 % 2 == 0));
            driver.press(number / 64 % 2 == 0 ? Qt::Key_F5 : Qt::Key_F8);
            QCoreApplication::processEvents();
            ASSERT_EQ(calculate(driver), isGerman ? "Berechnen" : "Calculate");
        }
        driver.press(Qt::Key_F5);
        driver.window().close();
    }
}

TEST_F(OptionsTest, OfTheLogHoldFromTheStartAndFromTheirChangeToTheWindowsEnd)
{
    CAppSettings().setValue("LogLevel", 6);
    CAppSettings().setValue("UseLogFile", true);
    const QString log = platform::userDataFolder() + "/Quillon.example/Kestrum/kestrum.log";
    QFile::remove(log);
    {
        MainWindowDriver driver({write("letters", "abc"), "-start"});
        const auto say = [&driver](std::int32_t level, bool isOn, const char* text) {
            driver.window().onAppOptionsChanged(optionsOf(kEnglish, level, isOn));
            logLine(text);
        };
        say(2, true, "first");
        say(0, true, "second");
        say(2, true, "third");
        EXPECT_TRUE(waitFor([&log] { return bytesOf(log).contains("third"); }));
        say(2, false, "fourth");
        say(6, true, "fifth");
        driver.window().close();
        EXPECT_TRUE(waitFor([&log] { return bytesOf(log).contains("Finish ..."); }));
        const QByteArray text = bytesOf(log);
        EXPECT_EQ(text.count("first"), 1);
        EXPECT_FALSE(text.contains("second") || text.contains("fourth"));
        const QRegularExpression inOrder(
            "File logger was started[.].*Start [.]{3}.*Try to process command line: "
            ".*third.*fifth.*Finish [.]{3}",
            QRegularExpression::DotMatchesEverythingOption);
        EXPECT_TRUE(inOrder.match(QString::fromUtf8(text)).hasMatch()) << text.toStdString();
    }
    EXPECT_FALSE(logger::getLogSender()->isEnabled(logger::ELogLevel::Error));
    EXPECT_FALSE(logger::getLogSender()->appenders().isAppenderEnabled(1));
}

} // namespace
} // namespace quillon::tests
