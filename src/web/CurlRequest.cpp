#include "web/CurlRequest.h"

#include "err/ResultCode.h"
#include "platform/Network.h"
#include "sync/ScopeExit.h"
#include "vars/Product.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <utility>

namespace quillon::web {
namespace {

constexpr const char* kUserAgent =
    "Mozilla/5.0 (Windows NT 10.0; WOW64) AppleWebKit/537.36 (KHTML, like Gecko) "
    "Chrome/49.0.2623.112 Safari/537.36";
constexpr long kConnectLimitSeconds = 30;

// Nobody reads more of an answer, and a server may send without end.
constexpr std::size_t kMostKeptBytes = std::size_t{64} * 1024;

using CurlHandle = std::unique_ptr<curl::Handle, curl::EasyCleanup*>;

err::ResultCode curlError(curl::Code code)
{
    return code == curl::kOk ? err::ResultCode{}
                             : err::ResultCode{err::kGroupCurl, static_cast<std::uint32_t>(code)};
}

std::string proxyText(const NetProxy<char>& proxy)
{
    if (proxy.server.find(':') != std::string::npos)
        return proxy.server;
    return proxy.server + ':' + (proxy.port >= 1 ? std::to_string(proxy.port) : "80");
}

} // namespace

err::ResultCode setCurlProxy(CurlLibrary* library, curl::Handle* handle, const NetProxy<char>& proxy)
{
    if (handle == nullptr)
        return err::programError(err::kNullPointer);
    if (library == nullptr || !library->isLoaded())
        return err::programError(err::kLibraryNotLoaded);
    if (!proxy.isProxy())
        return {};
    curl::EasySetOption* const set = library->functions().easySetOption;
    curl::Code code = set(handle, curl::kProxy, proxyText(proxy).c_str());
    if (code == curl::kOk)
        code = set(handle, curl::kProxyUserName, proxy.login.c_str());
    if (code == curl::kOk)
        code = set(handle, curl::kProxyPassword, proxy.password.c_str());
    return curlError(code);
}

CurlRequest::CurlRequest()
    : CurlRequest(vars::kProbeUrl)
{
}

CurlRequest::CurlRequest(std::string url)
    : m_url(std::move(url))
{
}

err::ResultCodes CurlRequest::perform(CurlLibrary* library, const NetProxy<char>& proxy, unsigned* httpCode)
{
    if (library == nullptr)
        return {err::programError(err::kInvalidArgument), {}, {}};
    if (!library->isLoaded())
        return {err::programError(err::kLibraryNotLoaded), {}, {}};
    if (m_busy.exchange(true))
        return {err::programError(err::kAlreadyRunning), {}, {}};
    const sync::ScopeExit idle([this] { m_busy.set(false); });
    m_headers.set({});
    m_body.set({});
    unsigned ignored = 0;
    return transfer(*library, proxy, httpCode == nullptr ? ignored : *httpCode);
}

err::ResultCodes CurlRequest::transfer(CurlLibrary& library, const NetProxy<char>& proxy, unsigned& httpCode)
{
    const CurlFunctions& curl = library.functions();
    const platform::BrokenPipeSignalBlock block;
    const CurlHandle handle(curl.easyInit(), curl.easyCleanup);
    if (!handle)
        return {err::programError(err::kRequestNotCreated), {}, {}};
    setRequestOptions(curl, handle.get());
    const err::ResultCode proxySet = setCurlProxy(&library, handle.get(), proxy);
    setSinkOptions(curl, handle.get());
    setEndOptions(curl, handle.get());
    // Without a word libcurl would take a proxy from the environment.
    if (!proxy.isProxy())
        curl.easySetOption(handle.get(), curl::kProxy, "");
    if (const curl::Code code = curl.easyPerform(handle.get()); code != curl::kOk)
        return {curlError(code), {}, {}};
    long status = 0;
    if (const curl::Code code = curl.easyGetInfo(handle.get(), curl::kInfoResponseCode, &status);
        code != curl::kOk)
        return {curlError(code), {}, {}};
    httpCode = static_cast<unsigned>(status);
    return {proxySet, {}, {}};
}

// Options that this libcurl does not know are refused by it and left out: hence no look at the answers.

void CurlRequest::setRequestOptions(const CurlFunctions& curl, curl::Handle* handle) const
{
    curl.easySetOption(handle, curl::kVerbose, 0L);
    curl.easySetOption(handle, curl::kUserAgent, kUserAgent);
    curl.easySetOption(handle, curl::kUrl, m_url.c_str());
    curl.easySetOption(handle, curl::kFollowLocation, 1L);
    curl.easySetOption(handle, curl::kPost, 1L);
    curl.easySetOption(handle, curl::kPostFieldSize, 0L);
}

void CurlRequest::setSinkOptions(const CurlFunctions& curl, curl::Handle* handle)
{
    curl.easySetOption(handle, curl::kNoBody, 0L);
    curl.easySetOption(handle, curl::kHeader, 0L);
    curl.easySetOption(handle, curl::kWriteFunction, &CurlRequest::onBody);
    curl.easySetOption(handle, curl::kWriteData, static_cast<void*>(this));
    curl.easySetOption(handle, curl::kHeaderFunction, &CurlRequest::onHeader);
    curl.easySetOption(handle, curl::kHeaderData, static_cast<void*>(this));
}

void CurlRequest::setEndOptions(const CurlFunctions& curl, curl::Handle* handle)
{
    // A libcurl without threads of its own keeps time limits by jumping out of a signal's handler, which must
    // not happen in a program with threads.
    curl.easySetOption(handle, curl::kNoSignal, 1L);
    curl.easySetOption(handle, curl::kConnectTimeoutSeconds, kConnectLimitSeconds);
    curl.easySetOption(handle, curl::kOpenSocketFunction, &CurlRequest::onOpenSocket);
    curl.easySetOption(handle, curl::kOpenSocketData, static_cast<void*>(this));
    curl.easySetOption(handle, curl::kCloseSocketFunction, &CurlRequest::onCloseSocket);
    curl.easySetOption(handle, curl::kCloseSocketData, static_cast<void*>(this));
    curl.easySetOption(handle, curl::kTransferInfoFunction, &CurlRequest::onTransferInfo);
    curl.easySetOption(handle, curl::kTransferInfoData, static_cast<void*>(this));
    curl.easySetOption(handle, curl::kNoProgress, 0L);
    // Else a stopped look-up of a name is waited for, though nobody wants the answer any more.
    curl.easySetOption(handle, curl::kQuickExit, 1L);
}

void CurlRequest::stop()
{
    m_stopped.set(true);
    const std::lock_guard guard(m_sockets);
    for (const platform::NativeSocket socket : m_sockets.value)
        platform::shutDownSocket(socket);
}

std::size_t CurlRequest::onBody(const char* data, std::size_t size, std::size_t count, void* request) noexcept
{
    auto* const self = static_cast<CurlRequest*>(request);
    return self == nullptr ? 0 : self->keep(self->m_body, data, size * count);
}

std::size_t CurlRequest::onHeader(const char* data, std::size_t size, std::size_t count,
                                  void* request) noexcept
{
    auto* const self = static_cast<CurlRequest*>(request);
    return self == nullptr ? 0 : self->keep(self->m_headers, data, size * count);
}

std::size_t CurlRequest::keep(Bytes& sink, const char* data, std::size_t bytes) noexcept
try {
    if (m_stopped.get())
        return 0;
    if (data == nullptr || bytes == 0)
        return bytes;
    const std::lock_guard guard(sink);
    const std::size_t kept = std::min(bytes, kMostKeptBytes - std::min(kMostKeptBytes, sink.value.size()));
    sink.value.insert(sink.value.end(), data, data + kept);
    return bytes;
} catch (...) {
    return 0; // no memory for an answer of this size
}

int CurlRequest::onTransferInfo(void* request, long long /*toReceive*/, long long /*received*/,
                                long long /*toSend*/, long long /*sent*/) noexcept
{
    return static_cast<const CurlRequest*>(request)->m_stopped.get() ? 1 : 0;
}

platform::NativeSocket CurlRequest::onOpenSocket(void* request, int /*purpose*/,
                                                 const curl::SocketAddress* address) noexcept
{
    return static_cast<CurlRequest*>(request)->openSocket(*address);
}

platform::NativeSocket CurlRequest::openSocket(const curl::SocketAddress& address) noexcept
try {
    // One lock around all, so that `stop` either finds the socket or is found here.
    const std::lock_guard guard(m_sockets);
    if (m_stopped.get())
        return platform::kNoSocket;
    m_sockets.value.reserve(m_sockets.value.size() + 1);
    const platform::NativeSocket socket =
        platform::openSocket(address.family, address.type, address.protocol);
    if (socket != platform::kNoSocket)
        m_sockets.value.push_back(socket);
    return socket;
} catch (...) {
    return platform::kNoSocket;
}

int CurlRequest::onCloseSocket(void* request, platform::NativeSocket socket) noexcept
{
    auto& sockets = static_cast<CurlRequest*>(request)->m_sockets;
    // Closed under the lock: behind it the number may be another file's, which `stop` must not shut down.
    const std::lock_guard guard(sockets);
    std::erase(sockets.value, socket);
    platform::closeSocket(socket);
    return 0;
}

} // namespace quillon::web
