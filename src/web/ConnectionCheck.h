#pragma once

#include "err/ResultCode.h"
#include "sync/Locker.h"
#include "sync/SafeData.h"
#include "web/CurlLibrary.h"
#include "web/CurlRequest.h"
#include "web/NetProxy.h"

#include <string>
#include <vector>

namespace quillon::web {

/// What a check of the Internet connection is given, and what it leaves behind.
struct SCheckNetworkConnection
{
    NetProxy<char> proxy;
    err::ResultCodes result;

    [[nodiscard]] bool isSuccess() const noexcept
    {
        return err::succeeded(result.first) && err::succeeded(result.second) && err::succeeded(result.third);
    }
};

/// Tests whether one request through a proxy, or without one, gets an answer. Binds libcurl at the first
/// check, and again at each further one until that succeeds. One check at a time.
class ConnectionCheck
{
public:
    /// The record as a worker and the user interface share it.
    using State = sync::SafeData<sync::Locker, SCheckNetworkConnection>;

    /// Looks for libcurl beside the program and in the system's usual places, and asks the usual page.
    ConnectionCheck();

    /// `libraryPaths` are names for CurlLibrary::load, tried in this order.
    ConnectionCheck(std::vector<std::string> libraryPaths, std::string url);

    /// Checks and waits for the end. Any HTTP status is a success. The result of a library that cannot be
    /// bound is that of the first path, kLibraryNotLoaded where there is none; else it is that of
    /// CurlRequest::perform. Failures are logged, without login and password.
    err::ResultCodes check(const NetProxy<char>& proxy);

    /// Ends the check that is under way, and every later one, see CurlRequest::stop. Any thread.
    void stop() { m_request.stop(); }

private:
    err::ResultCode bindLibrary();

    const std::vector<std::string> m_libraryPaths;
    CurlLibrary m_library;
    CurlRequest m_request;
};

} // namespace quillon::web
