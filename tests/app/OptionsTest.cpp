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
    std::wstring& calls = reinterpret_cast<std::wstring& (*)()>(helper.resolve("recordedCalls"))();
    std::string names;
    for (const QString& call :
         QString::fromStdWString(std::exchange(calls, {})).split('\n', Qt::SkipEmptyParts))
        names += call.section('|', 0, 0).toStdString() + ' ';
    return names;
}

void logLine(const std::string& text)
{
    logger::log(logger::ELogLevel::Error, "test", [&text](auto& record) { record << text; });
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

    static SAppOptions optionsOf(std::uint32_t localeId, std::int32_t logLevel, bool useLogFile)
    {
        SAppOptions options;
        options.localeId = localeId;
        options.logLevel = logLevel;
        options.useLogFile = useLogFile;
        return options;
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

// What no control changes is stored as it was, each setting by itself.
TEST_F(OptionsTest, ThatAreConfirmedOrAppliedAreStoredEachByItselfAndShownAgain)
{
    std::string defaults;
    for (const CaseRow& row : readCaseTable("app/options.txt")) {
        if (row.size() == 1)
            defaults = row[0];
        for (int way = 0; row.size() > 1 && way < 2; ++way) {
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
            useOptions(driver, way == 0 ? "buttonOk" : "buttonApply",
                       [&](const OptionsUser& user) { user.enter(control, row[1].c_str()); });
            EXPECT_EQ(allStored(), expected);
            loadStartLanguage();
            MainWindowDriver next;
            useOptions(next, "buttonCancel",
                       [&](const OptionsUser& user) { EXPECT_EQ(user.shown(control), row[3]); });
        }
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

TEST_F(OptionsTest, ThatAreConfirmedGovernTheWindowAndTheNextStart)
{
    const QString file = write("letters", "abc");
    {
        MainWindowDriver driver({file});
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
    }
    MainWindowDriver next({file});
    EXPECT_TRUE(next.child<QComboBox>("comboBoxSelectAlg").currentText().startsWith("MD5"));
    useOptions(next, "buttonCancel",
               [](const OptionsUser& user) { EXPECT_EQ(user.shown("labelLogLevel"), "Protokollstufe:"); });
    const QString log = next.window().getLogFilePath();
    EXPECT_TRUE(waitFor([&log] { return bytesOf(log).contains("Start ..."); }));
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
    const std::string remove = "removeShellContextMenuForUserT ";
    const std::string removal = remove + remove + remove + remove;
    const std::string creation = "createShellContextMenuForUserT ";
    const std::pair<const char*, std::string> changes[]{
        {"checkBoxUseLogFile", ""},
        {"checkBoxAddSendTo", removal + creation},
        {"checkBoxIntergaretToContextMenu", removal},
    };
    takeHelperCalls();
    auto driver = std::make_unique<MainWindowDriver>();
    EXPECT_EQ(takeHelperCalls(), removal + creation + "createShellLinkW ");
    for (const auto& [control, calls] : changes) {
        useOptions(*driver, "buttonOk", [box = control](const OptionsUser& user) { user.click(box); });
        EXPECT_EQ(takeHelperCalls(), calls) << control;
    }
    driver->window().onAppOptionsChanged(optionsOf(kGerman, 0, false));
    EXPECT_EQ(takeHelperCalls(), removal + creation + removal + creation) << "the entry's text, and its box";
    const std::filesystem::path link =
        platform::sendToLinkPath(vars::kProductName, vars::kProductGuid).toStdU16String();
    std::filesystem::create_directories(link.parent_path());
    std::ofstream(link).close();
    CAppSettings().setValue("AddToSendMenu", false);
    driver.reset();
    driver = std::make_unique<MainWindowDriver>();
    EXPECT_EQ(takeHelperCalls(), removal + creation);
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

TEST_F(OptionsTest, AndTheLogLieInFoldersNamedAfterTheProduct)
{
    const QString data = QDir::toNativeSeparators(platform::userDataFolder() + "/Quillon.example");
    EXPECT_EQ(CMainWindow::getCompanyDataPath(false), data);
    for (const auto& [company, product, name] :
         {std::tuple{21, 20, "/Kestrum"}, {20, 20, "/Kestrum/Kestrum"}})
        EXPECT_EQ(CMainWindow::getAppDataPath(company, product, false),
                  data + QDir::toNativeSeparators(name));
    EXPECT_EQ(CMainWindow::getAppDataPath(0, 21, false), QString()) << "an unknown product";
    EXPECT_TRUE(QDir(CMainWindow::getAppDataPath(0, 20, true)).exists());
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
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    auto& toolBar = driver.child<QComboBox>("comboBoxSelectAlg");
    std::vector<CaseRow> rows;
    for (int row = 0; row < toolBar.count() && row < list.count(); ++row)
        rows.push_back({toolBar.itemText(row).toStdString(), list.item(row)->text().toStdString()});
    EXPECT_EQ(rows, readCaseTable("app/algorithm-list.txt"));
}

TEST_F(OptionsTest, HaveNamedFieldsAndPagesThatFillOnce)
{
    MainWindowDriver driver;
    useOptions(driver, "buttonCancel", [](const OptionsUser& user) {
        QSet<const QWidget*> named;
        for (const QLabel* label : user.dialog.findChildren<QLabel*>())
            named.insert(label->buddy());
        for (const char* kind : {"QComboBox", "QLineEdit", "QTableWidget"})
            for (const auto* field : user.dialog.findChildren<QWidget*>())
                EXPECT_TRUE(!field->inherits(kind) || named.contains(field) ||
                            !field->accessibleName().isEmpty())
                    << field->objectName().toStdString() << " has no name for screen readers";
        EXPECT_FALSE(user.dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
        EXPECT_EQ(user.reach<QTableWidget>("tableWidgetShortcutKeys").currentRow(), 1);
        EXPECT_FALSE(user.reach<QLabel>("labelAppIcon").pixmap(Qt::ReturnByValue).isNull());
        EXPECT_EQ(user.shown("labelHomePage"), "Kestrum home page:");
        EXPECT_EQ(user.shown("labelDonate"), "Donate to the Kestrum:");
        EXPECT_NE(user.shown("lineEditLogFile").find("kestrum.log"), std::string::npos);
        user.click("buttonApply");
        QShowEvent shownAgain;
        QCoreApplication::sendEvent(&user.dialog, &shownAgain);
        EXPECT_EQ(user.shown("labelVersion"), "Kestrum") << "the form's own text, which Apply brings back";
    });
}

TEST_F(OptionsTest, HaveLinksThatOpenTheirAddressesAndTheLogsFolderOnceThereIsOne)
{
    UrlDesktop desktop;
    MainWindowDriver driver;
    const QString logs = QFileInfo(driver.window().getLogFilePath()).absolutePath();
    QDir(logs).removeRecursively();
    const auto follow = [](const OptionsUser& user) {
        for (const char* name : {"labelHomePageUrl", "labelEmailUrl", "labelDonateUrl", "labelViewLogFile"})
            user.click(name);
    };
    useOptions(driver, "buttonCancel", follow);
    QList<QUrl> expected{QUrl("https://kestrum.quillon.example/"),
                         QUrl("mailto:support@quillon.example?subject=Kestrum"),
                         QUrl("https://kestrum.quillon.example/donate")};
    EXPECT_EQ(desktop.opened, expected);
    driver.window().onAppOptionsChanged(optionsOf(kEnglish, 0, true));
    useOptions(driver, "buttonCancel", follow);
    EXPECT_EQ(desktop.opened.mid(3), expected << QUrl::fromLocalFile(logs));
}

TEST_F(OptionsTest, ChangeOftenInAnyOrderWhileRunsGoOnOthersLogAndWindowsClose)
{
    const QString file = write("blocks", blocksOfBytes(16));
    std::mt19937 random(20261123);
    const int threads = threadCount();
    const auto oneOf = [&random](auto... values) {
        const std::array choices{values...};
        return choices.at(random() % choices.size());
    };
    for (int window = 0; window < 10; ++window) {
        MainWindowDriver driver({file});
        for (int change = 0; change < 25; ++change) {
            const SAppOptions options = optionsOf(oneOf(kEnglish, kGerman, kEnglish, kEnglish),
                                                  oneOf(0, 2, 5, 6), oneOf(true, false));
            const std::jthread other([&driver] {
                for (int line = 0; line < 4; ++line)
                    logLine(driver.window().getString("x", "Open"));
            });
            driver.window().onAppOptionsChanged(options);
            driver.press(oneOf(Qt::Key_F5, Qt::Key_F8));
            QCoreApplication::processEvents();
            ASSERT_EQ(calculate(driver), options.localeId == kGerman ? "Berechnen" : "Calculate");
        }
        driver.press(Qt::Key_F5);
        driver.window().close();
    }
    EXPECT_TRUE(waitFor([threads] { return threadCount() <= threads; }));
}

TEST_F(OptionsTest, OfTheLogHoldFromTheStartAndFromTheirChangeToTheWindowsEnd)
{
    CAppSettings().setValue("LogLevel", 6);
    CAppSettings().setValue("UseLogFile", true);
    const QString log = CMainWindow::getAppDataPath(0, vars::kProductId, false) + "/kestrum.log";
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
        int place = text.indexOf("File logger was started.");
        for (const char* next :
             {"Start ...", "Try to process command line: ", "third", "fifth", "Finish ..."}) {
            const int found = text.indexOf(next, place);
            EXPECT_GT(found, place) << next;
            place = found;
        }
    }
    EXPECT_FALSE(logger::getLogSender()->isEnabled(logger::ELogLevel::Error));
    EXPECT_FALSE(logger::getLogSender()->appenders().isAppenderEnabled(1));
}

} // namespace
} // namespace quillon::tests
