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
struct LocalPage
{
    explicit LocalPage(const char* answer)
    {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, [this, answer] {
            socket = server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, [this, answer] {
                request += socket->readAll();
                if (isAsked())
                    socket->write(answer);
            });
        });
    }

    [[nodiscard]] bool isAsked() const { return request.contains("\r\n\r\n"); }

    QByteArray request;
    QTcpServer server;
    QTcpSocket* socket = nullptr;
};

struct OptionsNetwork : testing::Test
{
    OptionsNetwork()
    {
        dialog.setSystemQuery([] { return SystemAnswer{}; });
        dialog.setNetProxy({20, "proxy.example", 8080, "ann", "secret"});
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

    /// The result line after a click on the button, with a check of the page at `url`.
    [[nodiscard]] std::string check(const std::vector<std::string>& libraries, const std::string& url)
    {
        dialog.show();
        dialog.setConnectionCheck(std::make_shared<ConnectionCheck>(libraries, url));
        QWidget& button = user.reach("buttonCheckConnection");
        user.reach<QLineEdit>("lineEditNetworkLogs").setText("of the check before");
        button.setFocus();
        user.click("buttonCheckConnection");
        EXPECT_EQ(user.shown("lineEditNetworkLogs"), "");
        EXPECT_FALSE(button.isEnabled());
        EXPECT_TRUE(waitForEnabled("buttonCheckConnection", true));
        EXPECT_EQ(dialog.focusWidget(), &button);
        return result();
    }

    COptionsDialog dialog;
    OptionsUser user{dialog};
};

TEST_F(OptionsNetwork, EachModeHasItsFieldsAndAStoredSystemModeAsksTheSystemAtTheFirstShow)
{
    std::promise<SystemAnswer> system;
    dialog.setSystemQuery([answer = system.get_future().share()] { return answer.get(); });
    dialog.setProxySelectType(EProxySelectType::System);
    dialog.show();
    EXPECT_EQ(fields(), " - - ann secret");
    EXPECT_TRUE(waitForEnabled("comboBoxProxyConfigType", false));
    system.set_value({{1, "system.example", 3128, {}, {}}, {}});
    EXPECT_TRUE(waitForEnabled("comboBoxProxyConfigType", true));
    EXPECT_EQ(fields() + result(), " -system.example -3128 ann secret#000000 ");
    user.enter("comboBoxProxyConfigType", "Manual");
    EXPECT_EQ(fields(), " system.example 3128 ann secret");
    user.enter("comboBoxProxyConfigType", "No proxy");
    EXPECT_EQ(fields(), " -system.example -3128 -ann -secret");
    user.click("buttonOk");
    EXPECT_EQ(dialog.getNetProxy().server, "system.example");
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
    dialog.show();
    for (const auto& [query, expected] : queries) {
        dialog.setSystemQuery(query);
        user.enter("comboBoxProxyConfigType", "No proxy");
        QTest::keyClick(&user.reach("comboBoxProxyConfigType"), Qt::Key_Down);
        user.reach<QLineEdit>("lineEditNetworkLogs").setText("waiting");
        EXPECT_TRUE(waitFor([this] { return user.shown("lineEditNetworkLogs") != "waiting"; }));
        EXPECT_TRUE(user.reach("comboBoxProxyConfigType").isEnabled());
        EXPECT_EQ(result() + fields(), expected);
    }
}

TEST_F(OptionsNetwork, ACheckUsesTheFieldsWhateverTheModeAndShowsItsCodesEachTimeItFails)
{
    const LocalPage proxy("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
    dialog.setNetProxy({0, " 127.0.0.1 ", proxy.server.serverPort(), "ann", "secret"});
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_EQ(check({}, ""), "#ff0000 Failed to check network connection. Error: 5/90.");
    EXPECT_EQ(check(platform::curlLibraryPaths(), "http://kestrum.invalid/"),
              "#005f00 Internet connection was checked successfully");
    EXPECT_TRUE(proxy.request.startsWith("POST http://kestrum.invalid/ HTTP/1.1\r\n"))
        << proxy.request.constData();
    EXPECT_TRUE(proxy.request.contains("Proxy-Authorization: Basic YW5uOnNlY3JldA=="));
}

TEST_F(OptionsNetwork, EachWayOutHidesTheDialogAtOnceAndLeavesBothJobsBehind)
{
    for (const std::string way : {"buttonOk", "buttonCancel", "Escape", "title bar"}) {
        SCOPED_TRACE(way);
        const LocalPage page("");
        COptionsDialog left;
        const OptionsUser hands{left};
        std::promise<void> systemAnswers;
        auto token = std::make_shared<int>();
        const std::weak_ptr<int> query = token;
        left.setSystemQuery(
            [owned = std::exchange(token, nullptr), answer = systemAnswers.get_future().share()] {
                answer.wait();
                return SystemAnswer{};
            });
        left.setConnectionCheck(std::make_shared<ConnectionCheck>(
            platform::curlLibraryPaths(),
            "http://127.0.0.1:" + std::to_string(page.server.serverPort()) + "/"));
        left.setProxySelectType(EProxySelectType::System);
        left.show();
        hands.click("buttonCheckConnection");
        ASSERT_TRUE(waitFor([&page] { return page.isAsked(); }));

        QElapsedTimer clock;
        clock.start();
        if (way == "Escape")
            QTest::keyClick(&left, Qt::Key_Escape);
        else if (way == "title bar")
            left.close();
        else
            hands.click(way.c_str());
        EXPECT_LT(clock.elapsed(), 1000) << "milliseconds: far above what it takes, far below a wait";
        EXPECT_FALSE(left.isVisible());
        EXPECT_EQ(left.result(), way == "buttonOk" ? QDialog::Accepted : QDialog::Rejected);
        EXPECT_TRUE(waitFor([&page] { return page.socket->state() == QAbstractSocket::UnconnectedState; }));
        left.setSystemQuery({});
        EXPECT_FALSE(query.expired()) << "the query owns what it works on";
        systemAnswers.set_value();
        EXPECT_TRUE(waitFor([&query] { return query.expired(); }));
    }
}

} // namespace
} // namespace quillon::tests
