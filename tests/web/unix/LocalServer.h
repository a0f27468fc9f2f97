#pragma once

#include "sync/SafeData.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>
#include <thread>
#include <vector>

namespace quillon::tests {

/// A server on loopback. Each connection in turn gets one of `answers` for its request, and is then held
/// until the client goes. Takes no connection where there are none.
class LocalServer
{
public:
    explicit LocalServer(std::vector<std::string> answers)
    {
        socklen_t size = sizeof m_address;
        bind(m_listener, reinterpret_cast<const sockaddr*>(&m_address), size);
        listen(m_listener, 0);
        getsockname(m_listener, reinterpret_cast<sockaddr*>(&m_address), &size);
        m_thread = std::thread([this, answers = std::move(answers)] {
            for (const std::string& answer : answers)
                serve(answer);
        });
    }
    ~LocalServer()
    {
        shutdown(m_listener, SHUT_RDWR);
        m_thread.join();
        close(m_listener);
        close(m_filler);
    }

    [[nodiscard]] std::uint16_t port() const { return ntohs(m_address.sin_port); }
    [[nodiscard]] std::string requests() const { return m_requests.get(); }

    /// From now on no client that is new gets an answer to its wish to connect.
    void fillQueue() const
    {
        connect(m_filler, reinterpret_cast<const sockaddr*>(&m_address), sizeof m_address);
    }

private:
    void serve(const std::string& answer)
    {
        const int client = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        std::string request;
        char bytes[1024];
        ssize_t count = 0;
        while (!request.ends_with("\r\n\r\n") && (count = recv(client, bytes, sizeof bytes, 0)) > 0)
            request.append(bytes, static_cast<std::size_t>(count));
        m_requests.set(m_requests.get() + request);
        send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
        while (recv(client, bytes, sizeof bytes, 0) > 0) {
        }
        close(client);
    }

    const int m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int m_filler = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in m_address{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
    sync::SafeData<sync::Locker, std::string> m_requests;
    std::thread m_thread;
};

} // namespace quillon::tests
