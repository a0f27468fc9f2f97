// The check with the real libcurl, a real web server (nginx) and a real proxy (tinyproxy), all on loopback.

#include "platform/Network.h"

#include "logger/LogSender.h"
#include "support/PrintResultCode.h"
#include "support/RecordingAppender.h"
#include "support/TempFolder.h"
#include "web/ConnectionCheck.h"
#include "web/unix/LocalServers.h"
#include "web/unix/SlowLookUp.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <memory>
#include <sstream>
#include <string>

namespace quillon::web {
namespace {

using err::ResultCode;
using std::chrono::milliseconds;
using std::chrono::steady_clock;
using tests::freePort;
using tests::ServerProcess;

constexpr std::uintmax_t kLargeBytes = 100'000'000;
constexpr const char* kPassword = "p4ssw0rd";

std::string urlOf(std::uint16_t port, const std::string& path = "/")
{
    return "http://127.0.0.1:" + std::to_string(port) + path;
}

/// Both servers, for all tests of a run.
class Servers
{
public:
    Servers()
        : m_web({"/usr/sbin/nginx", "-p", folder(), "-e", "error.log", "-c", writeWebConfig()}, webPort)
        , m_proxy({"/usr/bin/tinyproxy", "-d", "-c", writeProxyConfig()}, proxyPort)
    {
        const std::filesystem::path large = m_folder.write("large", "");
        std::filesystem::resize_file(large, kLargeBytes);
    }

    [[nodiscard]] bool areReady() const noexcept { return m_web.isReady() && m_proxy.isReady(); }

    /// What the web server wrote down about all requests so far.
    [[nodiscard]] std::string requests() const
    {
        std::ostringstream text;
        text << std::ifstream(m_folder.file("requests")).rdbuf();
        return text.str();
    }

    const std::uint16_t webPort = freePort();
    const std::uint16_t proxyPort = freePort();

private:
    [[nodiscard]] std::string folder() const { return tests::utf8Name(m_folder.path()); }

    [[nodiscard]] std::string writeWebConfig() const
    {
        std::string config = R"(daemon off; master_process off; pid pid;
            events {}
            http {
                log_format request '$request|$content_length|$http_user_agent|$http_proxy_authorization';
                access_log requests request;
                client_body_temp_path body; proxy_temp_path proxy; fastcgi_temp_path fastcgi;
                uwsgi_temp_path uwsgi; scgi_temp_path scgi;
                server {
                    listen 127.0.0.1:PORT;
                    root .;
                    location / { return 200 ok; }
                    location /moved { return 302 /; }
                    location /missing { return 404; }
                    location /broken { return 500; }
                    location /large { error_page 405 =200 $uri; }
                }
            })";
        config.replace(config.find("PORT"), 4, std::to_string(webPort));
        config.replace(config.find("root ."), 6, "root " + folder());
        return tests::utf8Name(m_folder.write("nginx.conf", config));
    }

    [[nodiscard]] std::string writeProxyConfig() const
    {
        const std::string config = "Port " + std::to_string(proxyPort) +
                                   "\nListen 127.0.0.1\nTimeout 60\nBasicAuth name " + kPassword +
                                   "\nLogFile \"" + folder() + "/tinyproxy.log\"\n";
        return tests::utf8Name(m_folder.write("tinyproxy.conf", config));
    }

    tests::TempFolder m_folder;
    ServerProcess m_web;
    ServerProcess m_proxy;
};

class Network : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        for (const char* const name : {"http_proxy", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"})
            unsetenv(name);
        s_servers = std::make_unique<Servers>();
        ASSERT_TRUE(s_servers->areReady());
    }
    static void TearDownTestSuite() { s_servers.reset(); }

    void SetUp() override
    {
        for (const std::string& path : platform::curlLibraryPaths())
            static_cast<void>(m_library.load(path.c_str()));
        ASSERT_TRUE(m_library.isLoaded());
    }

    ResultCode perform(const std::string& url, const NetProxy<char>& proxy = {})
    {
        m_httpCode = 0;
        return CurlRequest(url).perform(&m_library, proxy, &m_httpCode).first;
    }

    /// How long `request` goes on after `stop`, which is called as soon as `isReady`.
    milliseconds timeToStop(CurlRequest& request, const std::function<bool()>& isReady)
    {
        std::future<err::ResultCodes> ending =
            std::async(std::launch::async, [&] { return request.perform(&m_library, {}, nullptr); });
        EXPECT_TRUE(isReady());
        const auto begin = steady_clock::now();
        request.stop();
        if (ending.wait_for(std::chrono::seconds(10)) != std::future_status::ready)
            tests::releaseSlowLookUps(); // it waits for this, which it must not
        EXPECT_EQ(ending.get().first.group, 50U);
        const auto passed = std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin);
        RecordProperty("milliseconds", std::to_string(passed.count()));
        return passed;
    }

    static inline std::unique_ptr<Servers> s_servers;
    CurlLibrary m_library;
    unsigned m_httpCode = 0;
};

TEST_F(Network, TheServerGetsAnEmptyPostWithTheProxysCredentials)
{
    const NetProxy<char> proxy{0, "127.0.0.1", s_servers->webPort, "name", kPassword};
    EXPECT_EQ(perform("http://host.invalid/page", proxy), ResultCode{});
    const std::string request =
        "POST http://host.invalid/page HTTP/1.1|0|Mozilla/5.0 (Windows NT 10.0; WOW64) AppleWebKit/537.36 "
        "(KHTML, like Gecko) Chrome/49.0.2623.112 Safari/537.36|Basic bmFtZTpwNHNzdzByZA==\n";
    EXPECT_TRUE(tests::waitUntil([&] { return s_servers->requests().find(request) != std::string::npos; }))
        << s_servers->requests();
}

TEST_F(Network, EveryAnswerIsASuccess)
{
    for (const auto& [path, status] : {std::pair("/", 200U), std::pair("/missing", 404U),
                                       std::pair("/broken", 500U), std::pair("/moved", 200U)}) {
        EXPECT_EQ(perform(urlOf(s_servers->webPort, path)), ResultCode{});
        EXPECT_EQ(m_httpCode, status) << path;
    }
}

TEST_F(Network, AProxyThatWantsAPasswordGetsIt)
{
    NetProxy<char> proxy{0, "127.0.0.1", s_servers->proxyPort, "name", kPassword};
    EXPECT_EQ(perform(urlOf(s_servers->webPort), proxy), ResultCode{});
    EXPECT_EQ(m_httpCode, 200U);
    proxy.password = "wrong";
    EXPECT_EQ(perform(urlOf(s_servers->webPort), proxy), ResultCode{});
    EXPECT_TRUE(m_httpCode == 401 || m_httpCode == 407) << m_httpCode;
}

TEST_F(Network, FailedTransfersGiveTheNumberOfTheReason)
{
    EXPECT_EQ(perform(urlOf(freePort())), (ResultCode{50, 7}));
    // One letter more than a part of a name may have: no resolver needs the network to refuse it.
    const std::string noHost = std::string(64, 'a') + ".invalid";
    EXPECT_EQ(perform("http://" + noHost), (ResultCode{50, 6}));
    EXPECT_EQ(perform("http://host.invalid", {0, noHost, 80, "", ""}), (ResultCode{50, 5}));
    EXPECT_EQ(m_httpCode, 0U);
}

TEST_F(Network, ALargeAnswerIsTakenWhole)
{
    CurlRequest request(urlOf(s_servers->webPort, "/large"));
    EXPECT_EQ(request.perform(&m_library, {}, &m_httpCode).first, ResultCode{});
    EXPECT_EQ(m_httpCode, 200U);
    EXPECT_EQ(request.receivedBodyBytes(), kLargeBytes);
    EXPECT_GT(request.receivedHeaderBytes(), 0U);
}

TEST_F(Network, StoppingEndsARequestToASilentServerAtOnce)
{
    tests::SilentServer silent;
    CurlRequest request(urlOf(silent.port()));
    EXPECT_LT(timeToStop(request, [&] { return silent.hasRequest() && silent.isWaitedFor(); }),
              milliseconds(500));
    EXPECT_EQ(request.perform(&m_library, {}, nullptr).first.group, 50U) << "a stopped request is sent anew";
}

TEST_F(Network, StoppingEndsALookUpThatGoesOnBehindTheEndOfTheLibrary)
{
    const auto threads = [] {
        using Folder = std::filesystem::directory_iterator;
        return std::distance(Folder("/proc/self/task"), Folder());
    };
    const auto threadsBefore = threads();
    CurlRequest request("http://" + std::string(tests::kSlowHost));
    EXPECT_LT(timeToStop(request, [] { return tests::waitUntil(tests::isLookingUp); }), milliseconds(1500));
    m_library = CurlLibrary();
    tests::releaseSlowLookUps();
    EXPECT_TRUE(tests::waitUntil([&] { return threads() <= threadsBefore; }));
}

TEST_F(Network, NoLogLineHoldsThePassword)
{
    tests::Lines lines;
    logger::getLogSender()->setLevel(logger::ELogLevel::Trace);
    ASSERT_TRUE(err::succeeded(
        logger::getLogSender()->appenders().addAppender(new tests::RecordingAppender(1, lines))));
    ConnectionCheck check(platform::curlLibraryPaths(), urlOf(s_servers->webPort));
    EXPECT_EQ(check.check({0, "127.0.0.1", s_servers->proxyPort, "other", kPassword}).first, ResultCode{});
    EXPECT_EQ(check.check({0, "127.0.0.1", freePort(), "name", kPassword}).first, (ResultCode{50, 7}));
    logger::getLogSender()->appenders().removeAllAppenders();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back().message, "Failed to check connection. Error: 50/7. HTTP code: '0'.");
    for (const auto& line : lines)
        EXPECT_EQ(line.message.find(kPassword), std::string::npos) << line.message;
}

} // namespace
} // namespace quillon::web
