// The two jobs of the options dialog's network page.

#include "app/OptionsUser.h"
#include "err/ResultCode.h"
#include "platform/Network.h"
#include "support/QtWait.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <new>

namespace quillon::tests {
namespace {

using web::ConnectionCheck;
using web::EProxySelectType;
using SystemAnswer = COptionsDialog::SGetSystemProxySettings;

/// A page on this machine that answers every request, or never answers.
class LocalPage
{
public:
    explicit LocalPage(bool answers)
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, [this, answers] {
            m_socket = m_server.nextPendingConnection();
            QObject::connect(m_socket, &QTcpSocket::readyRead, [this, answers] {
                request += m_socket->readAll();
                if (answers && isAsked())
                    m_socket->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
            });
        });
    }

    [[nodiscard]] std::string url() const { return "http://127.0.0.1:" + std::to_string(port()) + "/"; }
    [[nodiscard]] int port() const { return m_server.serverPort(); }
    [[nodiscard]] bool isAsked() const { return request.contains("\r\n\r\n"); }
    [[nodiscard]] bool isLeft() const { return m_socket->state() == QAbstractSocket::UnconnectedState; }

    QByteArray request;

private:
    QTcpServer m_server;
    QTcpSocket* m_socket = nullptr;
};

struct OptionsNetwork : testing::Test
{
    OptionsNetwork()
    {
        dialog->setSystemQuery([] { return SystemAnswer{}; });
        dialog->setNetProxy({20, "proxy.example", 8080, "ann", "secret"});
    }

    /// The four fields, those that take no text with a "-" before them.
    [[nodiscard]] std::string fields() const
    {
        std::string texts;
        for (const char* name :
             {"lineEditProxyAddress", "lineEditProxyPort", "lineEditProxyLogin", "lineEditProxyPassword"})
            texts += (user.reach(name).isEnabled() ? " " : " -") + user.shown(name);
        return texts;
    }

    /// The result line's colour and text.
    [[nodiscard]] std::string result() const
    {
        const QPalette palette = user.reach("lineEditNetworkLogs").palette();
        return palette.color(QPalette::Text).name().toStdString() + ' ' + user.shown("lineEditNetworkLogs");
    }

    [[nodiscard]] bool waitForEnabled(const char* control, bool isEnabled) const
    {
        return waitFor([&] { return user.reach(control).isEnabled() == isEnabled; });
    }

    /// The result line after a click on the button.
    [[nodiscard]] std::string check() const
    {
        user.reach<QLineEdit>("lineEditNetworkLogs").clear();
        user.click("buttonCheckConnection");
        EXPECT_FALSE(user.reach("buttonCheckConnection").isEnabled());
        EXPECT_EQ(user.shown("lineEditNetworkLogs"), "");
        EXPECT_TRUE(waitForEnabled("buttonCheckConnection", true));
        return result();
    }

    std::unique_ptr<COptionsDialog> dialog = std::make_unique<COptionsDialog>();
    OptionsUser user{*dialog};
};

TEST_F(OptionsNetwork, EachModeOfTheProxyHasItsFields)
{
    dialog->show();
    EXPECT_EQ(fields(), " -proxy.example -8080 -ann -secret");
    user.enter("comboBoxProxyConfigType", "Manual");
    EXPECT_EQ(fields(), " proxy.example 8080 ann secret");
    QTest::keyClick(&user.reach("comboBoxProxyConfigType"), Qt::Key_Up);
    EXPECT_EQ(fields(), " - - ann secret");
}

TEST_F(OptionsNetwork, AStoredSystemModeAsksTheSystemAtTheFirstShow)
{
    std::promise<SystemAnswer> system;
    dialog->setSystemQuery([answer = system.get_future().share()] { return answer.get(); });
    dialog->setProxySelectType(EProxySelectType::System);
    dialog->show();
    EXPECT_EQ(fields(), " - - ann secret");
    EXPECT_TRUE(waitForEnabled("comboBoxProxyConfigType", false));
    system.set_value({{1, "system.example", 3128, {}, {}}, {}});
    EXPECT_TRUE(waitForEnabled("comboBoxProxyConfigType", true));
    EXPECT_EQ(fields(), " -system.example -3128 ann secret");
    EXPECT_EQ(result(), "#000000 ");
    user.click("buttonOk");
    EXPECT_EQ(dialog->getNetProxy().server, "system.example");
}

TEST_F(OptionsNetwork, AQueryThatFailsSaysSoAndOneThatIsChosenAgainSucceeds)
{
    const std::pair<COptionsDialog::SystemQuery, const char*> queries[]{
        {[] {
             return SystemAnswer{{1, "bad", 1, {}, {}}, {1, 12}};
         },
         "#ff0000 Failed to get system proxy settings. Error: 1/12. - - ann secret"},
        {[]() -> SystemAnswer { throw std::bad_alloc(); },
         "#ff0000 Failed to get system proxy settings. Error: 5/13. - - ann secret"},
        {[] { return SystemAnswer{}; }, "#000000  - -0 ann secret"},
    };
    dialog->show();
    for (const auto& [query, expected] : queries) {
        dialog->setSystemQuery(query);
        user.enter("comboBoxProxyConfigType", "No proxy");
        QTest::keyClick(&user.reach("comboBoxProxyConfigType"), Qt::Key_Down);
        user.reach<QLineEdit>("lineEditNetworkLogs").setText("waiting");
        EXPECT_TRUE(waitFor([this] { return user.shown("lineEditNetworkLogs") != "waiting"; }));
        EXPECT_TRUE(user.reach("comboBoxProxyConfigType").isEnabled());
        EXPECT_EQ(result() + fields(), expected);
    }
}

TEST_F(OptionsNetwork, ACheckThatFailsShowsItsCodesEachTime)
{
    dialog->show();
    dialog->setConnectionCheck(std::make_shared<ConnectionCheck>(std::vector<std::string>{}, ""));
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_EQ(check(), "#ff0000 Failed to check network connection. Error: 5/90.");
}

TEST_F(OptionsNetwork, TheCheckUsesTheFieldsWhateverTheMode)
{
    const LocalPage proxy(true);
    dialog->setConnectionCheck(
        std::make_shared<ConnectionCheck>(platform::curlLibraryPaths(), "http://kestrum.invalid/"));
    dialog->setNetProxy({0, " 127.0.0.1 ", proxy.port(), "ann", "secret"});
    dialog->show();
    EXPECT_EQ(check(), "#005f00 Internet connection was checked successfully");
    EXPECT_TRUE(proxy.request.startsWith("POST http://kestrum.invalid/ HTTP/1.1\r\n"))
        << proxy.request.constData();
    EXPECT_TRUE(proxy.request.contains("Proxy-Authorization: Basic YW5uOnNlY3JldA=="));
}

TEST_F(OptionsNetwork, EachWayOutHidesTheDialogAtOnceAndLeavesBothJobsBehind)
{
    // Far above what closing takes, and far below what it would take to wait for the silent server.
    constexpr int kClosingLimitMs = 1000;
    const struct
    {
        const char* name;
        void (*leave)(const OptionsUser& hands);
        int result;
    } rows[] = {
        {"OK", [](const OptionsUser& hands) { hands.click("buttonOk"); }, QDialog::Accepted},
        {"Cancel", [](const OptionsUser& hands) { hands.click("buttonCancel"); }, QDialog::Rejected},
        {"Escape", [](const OptionsUser& hands) { QTest::keyClick(&hands.dialog, Qt::Key_Escape); },
         QDialog::Rejected},
        {"title bar", [](const OptionsUser& hands) { hands.dialog.close(); }, QDialog::Rejected},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const LocalPage page(false);
        std::promise<void> systemAnswers;
        auto token = std::make_shared<int>();
        const std::weak_ptr<int> query = token;
        dialog = std::make_unique<COptionsDialog>();
        dialog->setSystemQuery(
            [owned = std::exchange(token, nullptr), answer = systemAnswers.get_future().share()] {
                answer.wait();
                return SystemAnswer{};
            });
        dialog->setConnectionCheck(
            std::make_shared<ConnectionCheck>(platform::curlLibraryPaths(), page.url()));
        dialog->setProxySelectType(EProxySelectType::System);
        dialog->show();
        OptionsUser{*dialog}.click("buttonCheckConnection");
        ASSERT_TRUE(waitFor([&page] { return page.isAsked(); }));

        QElapsedTimer clock;
        clock.start();
        row.leave(OptionsUser{*dialog});
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(dialog->result(), row.result);
        EXPECT_TRUE(waitFor([&page] { return page.isLeft(); })) << "before the dialog's end";
        dialog.reset();
        EXPECT_LT(clock.elapsed(), kClosingLimitMs);
        EXPECT_FALSE(query.expired()) << "the query owns what it works on";
        systemAnswers.set_value();
        EXPECT_TRUE(waitFor([&query] { return query.expired(); }));
    }
}

} // namespace
} // namespace quillon::tests
