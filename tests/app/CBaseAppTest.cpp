#include "app/CBaseApp.h"

#include "app/FileLogger.h"
#include "i18n/StrBundleTrMgr.h"
#include "logger/Log.h"
#include "platform/qt/UserPlaces.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"
#include "support/TempFolder.h"
#include "vars/Product.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace quillon {
namespace {

namespace keys = thisapp::settings;
using logger::ELogLevel;
using web::EProxySelectType;

/// A product without a window. Its passwords are stored backwards, save those that begin with "!".
class App final : public CBaseApp
{
public:
    explicit App(std::uint32_t id = vars::kProductId)
        : m_id(id)
    {
    }

    [[nodiscard]] std::uint32_t getProductId() const override { return m_id; }
    [[nodiscard]] std::uint32_t getProductFlavour() const override { return 0; }
    void getProductVersion(std::uint32_t&, std::uint32_t&, std::uint32_t&, std::uint32_t&) const override {}

    void onLocaleChanged(const std::string& language, const std::string& country, long value) override
    {
        ++localeCalls;
        CBaseApp::onLocaleChanged(language, country, value);
    }

    bool decodeSettingValue(const char* key, const QVariant& stored, QVariant* plain) const override
    {
        QString text = stored.toString();
        std::reverse(text.begin(), text.end());
        *plain = text;
        return QLatin1String(key) == QLatin1String("NetProxyPassword") && !stored.toString().startsWith('!');
    }
    bool encodeSettingValue(const char* key, const QVariant& plain, QVariant* stored) const override
    {
        return decodeSettingValue(key, plain, stored);
    }

    int localeCalls = 0;

private:
    std::uint32_t m_id;
};

TEST(CBaseApp, NamesTheFoldersBelowTheUsersData)
{
    const QString data = platform::userDataFolder();
    const auto below = [&data](const char* names) { return QDir::toNativeSeparators(data + names); };
    EXPECT_EQ(CBaseApp::getCompanyDataPath(false), below("/Quillon.example"));
    EXPECT_EQ(CBaseApp::getAppDataPath(21, 20, false), below("/Quillon.example/Kestrum"));
    EXPECT_EQ(CBaseApp::getAppDataPath(20, 20, false), below("/Quillon.example/Kestrum/Kestrum"));
    EXPECT_TRUE(QDir(CBaseApp::getAppDataPath(0, 20, true)).exists());
    EXPECT_EQ(App().getLogFilePath(), below("/Quillon.example/Kestrum/kestrum.log"));
    EXPECT_EQ(App(21).getLogFilePath() + App(21).getProductTitle(), QString()) << "an unknown product";
}

/// A translation list with German and both kinds of Portuguese, and English in force.
class CBaseAppLocale : public testing::Test
{
protected:
    CBaseAppLocale()
    {
        CAppSettings().clear();
        QDir().mkpath(folder);
        write("kestrum.langs.xml", R"(<locales><locale language="pt" country="BR" file="pt-BR"/>
            <locale language="pt" country="PT" file="pt-PT"/><locale language="de" country="DE" file="de"/>
            </locales>)");
        for (const char* name : {"pt-BR", "pt-PT", "de"})
            write(name, QByteArray("@begin @context * @src Open @tr Open ") + name + " @end");
        static_cast<void>(texts.setProductName("Kestrum"));
        static_cast<void>(texts.loadTranslation("en", "US", true));
        app = std::make_unique<App>();
        static_cast<void>(app->addCallback(app.get()));
        static_cast<void>(app->addCallback(&listener));
    }

    ~CBaseAppLocale() override { QDir(folder).removeRecursively(); }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(folder + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    /// Asks for a language and tells what came of it.
    std::string change(const std::string& language, const std::string& country)
    {
        app->onLocaleChanged(language, country, 7);
        return state();
    }

    /// The locale in force, the loaded language, a text, the stored id and the notifications since.
    std::string state()
    {
        i18n::internal::Locale<char> locale;
        app->getLocale(locale);
        return locale.localeName + ", " + texts.getLanguage() + '-' + texts.getCountry() + ", " +
               app->getString("any", "Open") + ", " +
               CAppSettings().value(keys::LocaleId, "none").toString().toStdString() +
               std::exchange(listener.heard, {});
    }

    struct Listener final : i18n::internal::ILocaleCallback<char>
    {
        void onLocaleChanged(const std::string& language, const std::string& country, long value) override
        {
            heard += ", heard " + language + '-' + country + ' ' + std::to_string(value);
        }
        std::string heard;
    };

    const QString folder = QCoreApplication::applicationDirPath() + "/languages/";
    i18n::internal::StrBundleTrMgr<char>& texts = i18n::getStrBundleMgr();
    Listener listener;
    std::unique_ptr<App> app;
};

TEST_F(CBaseAppLocale, ChangesWithItsTextsItsStoredIdAndItsListeners)
{
    EXPECT_EQ(state(), "en-US, en-US, Open, none");
    EXPECT_EQ(change("pt", ""), "pt-PT, pt-PT, Open pt-PT, 2070, heard pt-PT 7");
    EXPECT_EQ(change("pt", "BR"), "pt-BR, pt-BR, Open pt-BR, 1046, heard pt-BR 7");
    EXPECT_EQ(change("DE", ""), "de-DE, de-DE, Open de, 1031, heard DE-DE 7");
    EXPECT_EQ(change("nl", ""), "nl-BE, nl-BE, Open, 2067, heard nl-BE 7") << "the catalogue's first country";
    EXPECT_EQ(app->localeCalls, 4) << "who asks for the change need not hear of it";
}

TEST_F(CBaseAppLocale, ThatIsInForceOrUnknownChangesNothing)
{
    for (const auto& [language, country] :
         {std::pair{"EN", "us"}, {"en", ""}, {"xx", ""}, {"de", "XX"}, {"", ""}})
        EXPECT_EQ(change(language, country), "en-US, en-US, Open, none") << language << '-' << country;
}

TEST_F(CBaseAppLocale, WhoseTextsAreLoadedAlreadyComesIntoForce)
{
    static_cast<void>(texts.loadTranslation("de", "DE", true));
    EXPECT_EQ(change("de", "DE"), "de-DE, de-DE, Open de, 1031, heard de-DE 7");
}

TEST_F(CBaseAppLocale, WhoseTextsCannotBeLoadedLeavesTheFormerOneInForce)
{
    (void)change("de", "DE");
    QFile::remove(folder + "kestrum.langs.xml");
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_EQ(change("pt", "PT"), "de-DE, de-DE, Open de, 1031");
}

std::string textOf(const App& app)
{
    const web::NetProxy<char> proxy = app.getNetProxy();
    return std::to_string(static_cast<int>(app.getProxySelectType())) + ' ' + std::to_string(proxy.type) +
           ' ' + proxy.login + ':' + proxy.password + '@' + proxy.server + ':' + std::to_string(proxy.port);
}

TEST(CBaseAppProxy, IsReadFromTheStoreWithWhatIsNotValidLeftOut)
{
    using Settings = std::map<QString, QVariant>;
    const std::pair<Settings, std::string> rows[] = {
        {{}, "0 0 :@:0"},
        {{{"Server", " a "},
          {"Login", "\tme "},
          {"Password", " b c "},
          {"Port", "9"},
          {"Type", 51},
          {"SelectType", 1}},
         "1 51 me:c b@a:9"},
        {{{"Password", "!plain "}, {"Type", 5}, {"SelectType", 3}}, "2 0 :!plain@:0"},
        {{{"Port", "x"}, {"Type", "x"}, {"SelectType", 0}}, "0 0 :@:0"},
    };
    for (const auto& [settings, expected] : rows) {
        CAppSettings().clear();
        for (const auto& [key, value] : settings)
            CAppSettings().setValue("NetProxy" + key, value);
        App app;
        app.setProxySelectType(EProxySelectType::Manual);
        app.loadNetProxy();
        EXPECT_EQ(textOf(app), expected);
    }
}

TEST(CBaseAppProxy, IsStoredWithItsPasswordEncoded)
{
    CAppSettings().clear();
    App app;
    app.setNetProxy({10, "h\xC3\xA4st", 8080, "me", "pass"});
    app.setProxySelectType(EProxySelectType::Manual);
    app.saveNetProxy();
    EXPECT_EQ(CAppSettings().value("NetProxyPassword").toString().toStdString(), "ssap");
    App other;
    other.loadNetProxy();
    EXPECT_EQ(textOf(other), "2 10 me:pass@h\xC3\xA4st:8080");
    app.setNetProxy({0, "", 0, "", "!as it is"});
    app.saveNetProxy();
    EXPECT_EQ(CAppSettings().value("NetProxyPassword").toString().toStdString(), "!as it is");
}

/// A log file of the test's own.
class CBaseAppLog : public testing::Test
{
protected:
    void setEnabled(bool enabled) const { setFileLoggerEnabled(enabled, tests::utf8Name(path)); }

    static void logText(const char* text)
    {
        logger::log(ELogLevel::Error, "test", [text](auto& record) { record << text; });
    }

    /// The messages in the file once there are `count`.
    [[nodiscard]] std::string messages(int count) const
    {
        std::string found;
        static_cast<void>(QTest::qWaitFor(
            [&] {
                std::ifstream file(path);
                found.clear();
                int lines = 0;
                for (std::string line; std::getline(file, line); ++lines)
                    found += line.substr(line.rfind("] ") + 1);
                return lines >= count;
            },
            60'000));
        return found;
    }

    App app;
    tests::TempFolder folder;
    std::filesystem::path path = folder.file("deep/kestrum.log");
};

TEST_F(CBaseAppLog, GoesToTheFileWhileItIsOnAndStartsSilent)
{
    setEnabled(true);
    logText("no level is on");
    logger::getLogSender()->setLevel(ELogLevel::Trace);
    logText("first");
    EXPECT_EQ(messages(1), " first");
    logger::getLogSender()->appenders().setAppenderEnabled(1, false);
    logText("nobody hears");
    setEnabled(true);
    logText("second");
    EXPECT_EQ(messages(2), " first second");
    setEnabled(false);
    logText("nobody hears");
    setEnabled(true);
    logText("third");
    EXPECT_EQ(messages(4), " first second File logger was started. third");
}

TEST_F(CBaseAppLog, IsOffWithoutAPathAndAfterTheAppsEnd)
{
    setFileLoggerEnabled(true, "");
    EXPECT_FALSE(logger::getLogSender()->appenders().isAppenderEnabled(1));
    {
        const App other;
        setEnabled(true);
        logger::getLogSender()->setLevel(ELogLevel::Trace);
    }
    EXPECT_FALSE(logger::getLogSender()->isEnabled(ELogLevel::Error));
    EXPECT_FALSE(logger::getLogSender()->appenders().isAppenderEnabled(1));
}

} // namespace
} // namespace quillon
