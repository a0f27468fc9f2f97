#pragma once

#include "err/ResultCode.h"
#include "platform/Network.h"
#include "sync/Locker.h"
#include "sync/SafeData.h"
#include "web/CurlLibrary.h"
#include "web/NetProxy.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quillon::web {

/// Sets the proxy options of a request: none at all where `proxy` is no proxy. A server that holds a ":" is
/// handed on as it stands, any other one gets the port, 80 for one below 1. kNullPointer without a handle,
/// kLibraryNotLoaded without a bound library, libcurl's error (kGroupCurl) for an option that is refused.
err::ResultCode setCurlProxy(CurlLibrary* library, curl::Handle* handle, const NetProxy<char>& proxy);

/// One POST with an empty body, through libcurl. Can be performed again after each end, until it is stopped.
class CurlRequest
{
public:
    /// Asks the page of the connection check.
    CurlRequest();
    explicit CurlRequest(std::string url);
    CurlRequest(const CurlRequest&) = delete;
    CurlRequest& operator=(const CurlRequest&) = delete;

    /// Sends the request and waits for the end of the answer. Any HTTP status is a success and goes to
    /// `httpCode`, which may be null and stays as it is on failure. kInvalidArgument without `library`,
    /// kLibraryNotLoaded with one that is not bound, kAlreadyRunning while a request is under way,
    /// kRequestNotCreated where libcurl gives no handle, libcurl's error (kGroupCurl) for a transfer that
    /// fails or a proxy that libcurl refuses. Connecting takes 30 s at most, the rest any time.
    err::ResultCodes perform(CurlLibrary* library, const NetProxy<char>& proxy, unsigned* httpCode);

    /// Ends a request that is under way, and every later one, as a failed transfer, and does not wait for it.
    /// `perform` then returns at once where the server is connected or being connected; during the look-up of
    /// a name, and where the system does not wake who waits for a socket (see shutDownSocket), it returns at
    /// libcurl's next look at its clock, a second later at most. Any thread.
    void stop();

    /// How many bytes of the last answer are kept, 64 KiB of either at most.
    [[nodiscard]] std::size_t receivedHeaderBytes() const { return m_headers.get().size(); }
    [[nodiscard]] std::size_t receivedBodyBytes() const { return m_body.get().size(); }

private:
    using Bytes = sync::SafeData<sync::Locker, std::vector<char>>;

    // What libcurl calls, on the thread of `perform`. No exception may cross it.
    static std::size_t onBody(const char* data, std::size_t size, std::size_t count, void* request) noexcept;
    static std::size_t onHeader(const char* data, std::size_t size, std::size_t count,
                                void* request) noexcept;
    static int onTransferInfo(void* request, long long toReceive, long long received, long long toSend,
                              long long sent) noexcept;
    static platform::NativeSocket onOpenSocket(void* request, int purpose,
                                               const curl::SocketAddress* address) noexcept;
    static int onCloseSocket(void* request, platform::NativeSocket socket) noexcept;

    std::size_t keep(Bytes& sink, const char* data, std::size_t bytes) noexcept;
    platform::NativeSocket openSocket(const curl::SocketAddress& address) noexcept;

    void setRequestOptions(const CurlFunctions& curl, curl::Handle* handle) const;
    void setSinkOptions(const CurlFunctions& curl, curl::Handle* handle);
    void setEndOptions(const CurlFunctions& curl, curl::Handle* handle);
    err::ResultCodes transfer(CurlLibrary& library, const NetProxy<char>& proxy, unsigned& httpCode);

    const std::string m_url;
    sync::SafeValue<bool> m_stopped;
    sync::SafeValue<bool> m_busy;
    Bytes m_headers;
    Bytes m_body;
    /// The sockets that libcurl has open, so that another thread can end its waiting for them.
    sync::SafeData<sync::Locker, std::vector<platform::NativeSocket>> m_sockets;
};

} // namespace quillon::web
