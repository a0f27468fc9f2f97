// The check with the real libcurl, and servers of the tests' own on loopback.

#include "platform/Network.h"

#include "support/PrintResultCode.h"
#include "support/Wait.h"
#include "web/CurlRequest.h"
#include "web/unix/LocalServer.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>
#include <poll.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <future>

namespace {

/// Whether the system is asked to wait a second for a socket, as libcurl does when it has nothing else to do.
std::atomic<bool> isWaiting{false};

/// The look-up of this name is held until it is released.
constexpr const char* kSlowHost = "slow.invalid";
std::atomic<bool> isLookingUp{false};
std::atomic<bool> isReleased{false};

void releaseLookUp()
{
    isReleased = true;
    isReleased.notify_all();
}

} // namespace

// The two stand in front of the C library's.

extern "C" __attribute__((visibility("default"))) int poll(pollfd* sockets, nfds_t count, int limit)
{
    static const auto next = reinterpret_cast<decltype(&poll)>(dlsym(RTLD_NEXT, "poll"));
    isWaiting = limit > 900;
    const int ready = next(sockets, count, limit);
    isWaiting = false;
    return ready;
}

extern "C" __attribute__((visibility("default"))) int
getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** result) noexcept(false)
{
    if (node != nullptr && std::string(node) == kSlowHost) {
        isLookingUp = true;
        isReleased.wait(false);
        return EAI_NONAME;
    }
    static const auto next = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return next(node, service, hints, result);
}

namespace quillon::web {
namespace {

using err::ResultCode;
using std::chrono::milliseconds;
using tests::LocalServer;
using tests::waitUntil;

std::string urlOf(const LocalServer& server)
{
    return "http://127.0.0.1:" + std::to_string(server.port());
}

class Network : public testing::Test
{
protected:
    Network()
    {
        for (const char* const name : {"http_proxy", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"})
            unsetenv(name);
        for (const std::string& path : platform::curlLibraryPaths())
            static_cast<void>(m_library.load(path.c_str()));
        EXPECT_TRUE(m_library.isLoaded());
    }

    /// Stops `request` once `isReady`; it must end within `limit`, and must not be sent anew.
    void expectStop(CurlRequest& request, const std::function<bool()>& isReady, milliseconds limit)
    {
        auto ending =
            std::async(std::launch::async, [&] { return request.perform(&m_library, {}, nullptr); });
        EXPECT_TRUE(waitUntil(isReady));
        request.stop();
        if (ending.wait_for(limit) != std::future_status::ready) {
            ADD_FAILURE() << "the request goes on";
            releaseLookUp();
        }
        EXPECT_EQ(ending.get().first.group, err::kGroupCurl);
        EXPECT_EQ(request.perform(&m_library, {}, nullptr).first.group, err::kGroupCurl);
    }

    CurlLibrary m_library;
};

TEST_F(Network, AnEmptyPostGoesThroughTheProxyAndAnAnswerOfAnyStatusIsTakenWhole)
{
    const std::string moved = "HTTP/1.1 302 Found\r\nLocation: /moved\r\nContent-Length: 0\r\n"
                              "Connection: close\r\n\r\n";
    const std::string missing = "HTTP/1.1 404 Not Found\r\nContent-Length: 1000000\r\n"
                                "Connection: close\r\n\r\n";
    const std::string body(1'000'000, 'x');
    const LocalServer proxy({moved, missing + body, moved, missing + body});
    CurlRequest request("http://host.invalid/page");
    for (int round = 0; round < 2; ++round) {
        unsigned httpCode = 0;
        const NetProxy<char> way{0, "127.0.0.1", proxy.port(), "name", "p4ssw0rd"};
        EXPECT_EQ(request.perform(&m_library, way, &httpCode).first, ResultCode{});
        EXPECT_EQ(httpCode, 404U);
        EXPECT_EQ(request.receivedHeaderBytes(), moved.size() + missing.size());
        EXPECT_EQ(request.receivedBodyBytes(), body.size());
    }
    const std::string sent = proxy.requests();
    EXPECT_TRUE(sent.starts_with("POST http://host.invalid/page HTTP/1.1\r\n")) << sent;
    for (const char* const part : {"Content-Length: 0\r\n", "Basic bmFtZTpwNHNzdzByZA==\r\n",
                                   "User-Agent: Mozilla/5.0 (", "http://host.invalid/moved HTTP/1.1\r\n"})
        EXPECT_NE(sent.find(part), std::string::npos) << part << " is not in\n" << sent;
    int others[16] = {};
    for (int i = 0; i < 16; i += 2)
        ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, &others[i]), 0);
    request.stop();
    for (const int other : others)
        EXPECT_EQ(send(other, "x", 1, MSG_NOSIGNAL), 1) << "the new owner of the socket's number was harmed";
    for (const int other : others)
        close(other);
}

TEST_F(Network, AStopInTheMiddleOfTheAnswerEndsTheRequestAtOnce)
{
    const LocalServer server({"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nbegin"});
    CurlRequest request(urlOf(server));
    expectStop(
        request, [&] { return request.receivedBodyBytes() == 5 && isWaiting; }, milliseconds(500));
}

TEST_F(Network, AStopWhileTheServerIsBeingConnectedEndsTheRequestAtOnce)
{
    const LocalServer busy({});
    busy.fillQueue();
    CurlRequest request(urlOf(busy));
    expectStop(
        request, [] { return isWaiting.load(); }, milliseconds(500));
}

TEST_F(Network, AStopDuringALookUpEndsTheRequestAndTheLookUpMayGoOnBehindTheEndOfTheLibrary)
{
    const auto threads = [] {
        using Folder = std::filesystem::directory_iterator;
        return std::distance(Folder("/proc/self/task"), Folder());
    };
    const auto threadsBefore = threads();
    CurlRequest request(std::string("http://") + kSlowHost);
    expectStop(
        request, [] { return isLookingUp.load(); }, milliseconds(1500));
    m_library = CurlLibrary();
    releaseLookUp();
    EXPECT_TRUE(waitUntil([&] { return threads() <= threadsBefore; }));
}

} // namespace
} // namespace quillon::web
