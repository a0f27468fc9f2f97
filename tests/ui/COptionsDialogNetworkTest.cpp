#include "platform/Network.h"
#include "ui/COptionsDialogDriver.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace quillon::tests {
namespace {

using web::ConnectionCheck;
using web::EProxySelectType;
using SystemAnswer = COptionsDialog::SGetSystemProxySettings;

constexpr int kLimitMs = 10000;

// Far above what closing takes, and far below what it would take to wait for the silent server.
constexpr int kClosingLimitMs = 1000;

/// A page on this machine that answers every request, or never answers.
class LocalPage
{
public:
    explicit LocalPage(bool answers)
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, [this, answers] {
            socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, [this, answers] {
                request += socket->readAll();
                if (answers && request.contains("\r\n\r\n"))
                    socket->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
            });
        });
    }

    [[nodiscard]] std::string url() const { return "http://127.0.0.1:" + std::to_string(port()) + "/"; }
    [[nodiscard]] int port() const { return m_server.serverPort(); }
    [[nodiscard]] bool isLeft() const
    {
        return socket != nullptr && socket->state() == QAbstractSocket::UnconnectedState;
    }

    QTcpSocket* socket = nullptr;
    QByteArray request;

private:
    QTcpServer m_server;
};

struct OptionsDialogNetwork : testing::Test, OptionsDriver
{
    void checkWith(const std::string& url)
    {
        dialog.setConnectionCheck(std::make_shared<ConnectionCheck>(platform::curlLibraryPaths(), url));
    }

    /// Waits for the end of a job by what it does to the control that it blocks.
    bool waitForEnabled(const char* control, bool isEnabled) const
    {
        return QTest::qWaitFor([&] { return find(control)->isEnabled() == isEnabled; }, kLimitMs);
    }

    void clickCheckAndWait()
    {
        const int former = finishedChecks;
        const std::string before = networkResult();
        click("buttonCheckConnection");
        EXPECT_FALSE(find("buttonCheckConnection")->isEnabled());
        EXPECT_EQ(networkResult(), before) << "nothing is told before the end";
        ASSERT_TRUE(QTest::qWaitFor([&] { return finishedChecks > former; }, kLimitMs));
        EXPECT_TRUE(find("buttonCheckConnection")->isEnabled());
    }

    QString proxyFields() const
    {
        return text("lineEditProxyAddress") + '|' + text("lineEditProxyPort") + '|' +
               text("lineEditProxyLogin") + '|' + text("lineEditProxyPassword");
    }
};

TEST_F(OptionsDialogNetwork, AStoredSystemModeQueriesTheSystemAtTheFirstShow)
{
    std::promise<SystemAnswer> system;
    dialog.setSystemQuery([answer = system.get_future().share()] { return answer.get(); });
    dialog.setProxySelectType(EProxySelectType::System);
    dialog.setNetProxy({20, "old.example", 80, "ann", "secret"});
    dialog.show();
    EXPECT_EQ(proxyFields(), "||ann|secret");
    EXPECT_TRUE(waitForEnabled("comboBoxProxyConfigType", false));
    system.set_value({{1, "system.example", 3128, {}, {}}, {}});
    EXPECT_TRUE(waitForEnabled("comboBoxProxyConfigType", true));
    EXPECT_EQ(proxyFields(), "system.example|3128|ann|secret");
    EXPECT_EQ(networkResult(), "#000000 ");
    click("buttonOk");
    EXPECT_EQ(dialog.getNetProxy().server, "system.example");
}

TEST_F(OptionsDialogNetwork, AQueryThatFailsSaysSoAndLeavesTheFieldsEmpty)
{
    dialog.setSystemQuery([] { return SystemAnswer{{}, {1, 12}}; });
    dialog.setProxySelectType(EProxySelectType::System);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitFor([this] { return finishedQueries == 1; }, kLimitMs));
    EXPECT_TRUE(find("comboBoxProxyConfigType")->isEnabled());
    EXPECT_EQ(networkResult(), "#ff0000 Failed to get system proxy settings. Error: 1/12.");
    EXPECT_EQ(proxyFields(), "|||");
}

TEST_F(OptionsDialogNetwork, ACheckThatFailsShowsItsCodesEachTime)
{
    dialog.setConnectionCheck(std::make_shared<ConnectionCheck>(std::vector<std::string>{}, ""));
    dialog.show();
    for (int attempt = 0; attempt < 2; ++attempt) {
        clickCheckAndWait();
        EXPECT_EQ(networkResult(), "#ff0000 Failed to check network connection. Error: 5/90.");
    }
}

TEST_F(OptionsDialogNetwork, AnyAnswerToTheCheckIsASuccess)
{
    const LocalPage page(true);
    checkWith(page.url());
    dialog.show();
    clickCheckAndWait();
    EXPECT_EQ(networkResult(), "#005f00 Internet connection was checked successfully");
    EXPECT_TRUE(page.request.startsWith("POST / HTTP/1.1\r\n")) << page.request.constData();
}

TEST_F(OptionsDialogNetwork, TheCheckUsesTheFieldsWhateverTheMode)
{
    const LocalPage proxy(true);
    checkWith("http://kestrum.invalid/");
    dialog.setNetProxy({0, " 127.0.0.1 ", proxy.port(), "ann", "secret"});
    dialog.show();
    clickCheckAndWait();
    EXPECT_EQ(networkResult(), "#005f00 Internet connection was checked successfully");
    EXPECT_TRUE(proxy.request.startsWith("POST http://kestrum.invalid/ HTTP/1.1\r\n"))
        << proxy.request.constData();
    EXPECT_TRUE(proxy.request.contains("Proxy-Authorization: Basic YW5uOnNlY3JldA=="));
}

TEST(OptionsDialogWaysOut, EachHidesTheDialogAtOnceAndLeavesBothJobsBehind)
{
    const struct
    {
        const char* name;
        void (*leave)(OptionsDriver&);
        int result;
    } rows[] = {
        {"OK", [](OptionsDriver& user) { user.click("buttonOk"); }, QDialog::Accepted},
        {"Cancel", [](OptionsDriver& user) { user.click("buttonCancel"); }, QDialog::Rejected},
        {"Escape", [](OptionsDriver& user) { QTest::keyClick(&user.dialog, Qt::Key_Escape); },
         QDialog::Rejected},
        {"title bar", [](OptionsDriver& user) { user.dialog.close(); }, QDialog::Rejected},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const LocalPage page(false);
        std::promise<void> systemAnswers;
        auto token = std::make_shared<int>();
        const std::weak_ptr<int> query = token;
        auto user = std::make_unique<OptionsDriver>();
        COptionsDialog& dialog = user->dialog;
        dialog.setSystemQuery(
            [owned = std::exchange(token, nullptr), answer = systemAnswers.get_future().share()] {
                answer.wait();
                return SystemAnswer{};
            });
        dialog.setConnectionCheck(
            std::make_shared<ConnectionCheck>(platform::curlLibraryPaths(), page.url()));
        dialog.setProxySelectType(EProxySelectType::System);
        dialog.show();
        user->click("buttonCheckConnection");
        ASSERT_TRUE(QTest::qWaitFor([&page] { return page.request.contains("\r\n\r\n"); }, kLimitMs));

        QElapsedTimer clock;
        clock.start();
        row.leave(*user);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(dialog.result(), row.result);
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(user->finishedQueries + user->finishedChecks, 0);
        user.reset();
        EXPECT_LT(clock.elapsed(), kClosingLimitMs);
        EXPECT_FALSE(query.expired()) << "the query owns what it works on";

        EXPECT_TRUE(QTest::qWaitFor([&page] { return page.isLeft(); }, kLimitMs));
        systemAnswers.set_value();
        EXPECT_TRUE(QTest::qWaitFor([&query] { return query.expired(); }, kLimitMs));
    }
}

} // namespace
} // namespace quillon::tests
