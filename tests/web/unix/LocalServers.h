#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quillon::tests {

/// Looks again and again whether `isTrue`, and gives up after some seconds.
bool waitUntil(const std::function<bool()>& isTrue);

/// A socket on loopback that takes connections and says nothing.
class SilentServer
{
public:
    SilentServer();
    ~SilentServer();
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    [[nodiscard]] std::uint16_t port() const noexcept { return m_port; }

    /// Waits for the first bytes of a client.
    [[nodiscard]] bool hasRequest();

    /// Waits until the client has nothing more to do but wait, and is still there.
    [[nodiscard]] bool isWaitedFor() const;

private:
    int m_listener;
    int m_client = -1;
    std::uint16_t m_port = 0;
};

/// A port that nobody serves right now.
[[nodiscard]] inline std::uint16_t freePort()
{
    return SilentServer().port();
}

/// A program that serves a port on loopback until the end of this object or of the test program.
class ServerProcess
{
public:
    ServerProcess(std::vector<std::string> command, std::uint16_t port);
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    [[nodiscard]] bool isReady() const noexcept { return m_isReady; }

private:
    pid_t m_process = -1;
    bool m_isReady = false;
};

} // namespace quillon::tests
