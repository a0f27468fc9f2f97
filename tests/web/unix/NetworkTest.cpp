// The check with the real libcurl, and servers of the tests' own on loopback.

#include "platform/Network.h"

#include "support/PrintResultCode.h"
#include "support/Wait.h"
#include "web/CurlRequest.h"

#include <arpa/inet.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <future>
#include <latch>
#include <string>

namespace {

/// Whether the system is asked to wait a second for a socket, as libcurl does when it has nothing else to do.
std::atomic<bool> isWaiting{false};

/// The look-up of this name is held until it is released.
constexpr const char* kSlowHost = "slow.invalid";
std::atomic<bool> isLookingUp{false};
std::latch isReleased{1};

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
        isReleased.wait();
        return EAI_NONAME;
    }
    static const auto next = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return next(node, service, hints, result);
}

namespace quillon::web {
namespace {

using err::ResultCode;
using std::chrono::milliseconds;
using tests::waitUntil;

/// A listener on loopback. The system lets one client in that nobody accepts, and gives others no answer.
struct LocalServer
{
    LocalServer()
    {
        socklen_t size = sizeof data;
        bind(socket, address, size);
        listen(socket, 0);
        getsockname(socket, address, &size);
    }
    ~LocalServer() { close(socket); }

    [[nodiscard]] std::string url() const
    {
        return "http://127.0.0.1:" + std::to_string(ntohs(data.sin_port));
    }

    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in data{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
    sockaddr* const address = reinterpret_cast<sockaddr*>(&data);
};

class Network : public testing::Test
{
protected:
    Network()
    {
        for (const char* const name : {"http_proxy", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"})
            unsetenv(name);
        EXPECT_EQ(m_library.load(platform::curlLibraryPaths().back().c_str()), ResultCode{});
    }

    std::future<ResultCode> perform(CurlRequest& request)
    {
        return std::async(std::launch::async, [&] { return request.perform(&m_library, {}, nullptr).first; });
    }

    /// Stops `request` once `isReady`; it must end within `limit`, and must not be sent anew.
    void expectStop(CurlRequest& request, const std::atomic<bool>& isReady, milliseconds limit)
    {
        auto ending = perform(request);
        EXPECT_TRUE(waitUntil([&] { return isReady.load(); }));
        EXPECT_EQ(perform(request).get(), err::programError(err::kAlreadyRunning));
        request.stop();
        EXPECT_EQ(ending.wait_for(limit), std::future_status::ready) << "the request goes on";
        EXPECT_EQ(ending.get().group, err::kGroupCurl);
        EXPECT_EQ(perform(request).get().group, err::kGroupCurl);
    }

    CurlLibrary m_library;
};

TEST_F(Network, KeepsTheBeginningOfALongAnswerAndAStopAfterwardsHarmsNobody)
{
    const LocalServer server;
    CurlRequest request(server.url());
    auto ending = perform(request);
    const int client = accept(server.socket, nullptr, nullptr);
    const std::string headers = "HTTP/1.1 404 Not Found\r\nContent-Length: 1000000\r\n\r\n";
    std::string bytes(1024, '\0');
    EXPECT_GT(recv(client, bytes.data(), bytes.size(), 0), 0);
    bytes = headers + std::string(1'000'000, 'x');
    send(client, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    close(client);
    EXPECT_EQ(ending.get(), ResultCode{});
    EXPECT_EQ(request.receivedHeaderBytes(), headers.size());
    EXPECT_EQ(request.receivedBodyBytes(), 65536U);
    int others[16] = {};
    for (int i = 0; i < 16; i += 2)
        ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, &others[i]), 0);
    request.stop();
    for (const int other : others)
        EXPECT_EQ(send(other, "x", 1, MSG_NOSIGNAL), 1) << "the new owner of the socket's number was harmed";
    for (const int other : others)
        close(other);
}

TEST_F(Network, AStopWhileTheServerIsConnectedOrBeingConnectedEndsTheRequestAtOnce)
{
    for (const bool isConnected : {true, false}) {
        const LocalServer silent;
        const int other = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (!isConnected)
            connect(other, silent.address, sizeof silent.data);
        CurlRequest request(silent.url());
        expectStop(request, isWaiting, milliseconds(500));
        close(other);
    }
}

TEST_F(Network, AStopDuringALookUpEndsTheRequestAndTheLookUpMayGoOnBehindTheEndOfTheLibrary)
{
    const auto threads = [] {
        using Folder = std::filesystem::directory_iterator;
        return std::distance(Folder("/proc/self/task"), Folder());
    };
    const auto threadsBefore = threads();
    CurlRequest request(std::string("http://") + kSlowHost);
    expectStop(request, isLookingUp, milliseconds(1500));
    m_library = CurlLibrary();
    isReleased.count_down();
    EXPECT_TRUE(waitUntil([&] { return threads() <= threadsBefore; }));
}

} // namespace
} // namespace quillon::web
