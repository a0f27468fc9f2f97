#pragma once

#include "err/ResultCode.h"
#include "web/NetProxy.h"

namespace quillon::web {

// The four queries: on success `proxy` is what the system has set, of type 1 and without login and password,
// or empty where it has none. On failure {1, number of the system}, and `proxy` stays as it is. They may
// block for as long as the system takes. Any thread.

/// The proxy that is set for the machine.
err::ResultCode queryDefaultProxy(NetProxy<wchar_t>& proxy);

/// The proxy that is set for the user, or that the user's configuration script names for the page of the
/// connection check.
err::ResultCode queryUserProxy(NetProxy<wchar_t>& proxy);

/// The same in UTF-8.
err::ResultCode getDefaultProxy(NetProxy<char>& proxy);
err::ResultCode getUserProxy(NetProxy<char>& proxy);

/// What a query of the system's proxy leaves behind. `proxy` is only good where `result` is a success.
struct SGetSystemProxySettings
{
    NetProxy<char> proxy;
    err::ResultCode result;
};

/// Asks for the machine's proxy and, where that fails or there is none, for the user's, whose answer then
/// counts alone. Blocks and may be called as the single queries.
[[nodiscard]] SGetSystemProxySettings querySystemProxy();

} // namespace quillon::web
