#include "web/unix/LocalServers.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace quillon::tests {
namespace {

constexpr std::chrono::seconds kLimit{20};

sockaddr_in loopback(std::uint16_t port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

bool isServed(std::uint16_t port)
{
    const sockaddr_in address = loopback(port);
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool isTaken = connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(socket);
    return isTaken;
}

bool happens(short event, int socket, std::chrono::milliseconds limit)
{
    pollfd wanted = {socket, event, 0};
    return poll(&wanted, 1, static_cast<int>(limit.count())) == 1;
}

} // namespace

bool waitUntil(const std::function<bool()>& isTrue)
{
    const auto limit = std::chrono::steady_clock::now() + kLimit;
    while (!isTrue()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::yield();
    }
    return true;
}

SilentServer::SilentServer()
    : m_listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    if (bind(m_listener, reinterpret_cast<const sockaddr*>(&address), size) == 0 &&
        listen(m_listener, 1) == 0 &&
        getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size) == 0)
        m_port = ntohs(address.sin_port);
}

SilentServer::~SilentServer()
{
    close(m_listener);
    if (m_client >= 0)
        close(m_client);
}

bool SilentServer::hasRequest()
{
    if (happens(POLLIN, m_listener, kLimit))
        m_client = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    return m_client >= 0 && happens(POLLIN, m_client, kLimit);
}

bool SilentServer::isWaitedFor() const
{
    // A while: libcurl has several short timers at the start of a transfer.
    return !happens(POLLRDHUP, m_client, std::chrono::milliseconds(500));
}

ServerProcess::ServerProcess(std::vector<std::string> command, std::uint16_t port)
{
    std::string name = "setpriv";
    std::string option = "--pdeathsig=TERM";
    std::vector<char*> arguments{name.data(), option.data()};
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    if (posix_spawnp(&m_process, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0)
        m_isReady = waitUntil([&] { return isServed(port) || waitpid(m_process, nullptr, WNOHANG) != 0; }) &&
                    isServed(port);
}

ServerProcess::~ServerProcess()
{
    if (m_process <= 0)
        return;
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
}

} // namespace quillon::tests
