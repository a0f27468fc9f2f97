#include "platform/SystemProxy.h"

#include "platform/unix/ProxyLibrary.h"
#include "text/Unicode.h"

namespace quillon::platform {

// The library asks the desktop's settings, which are the user's, and the environment all in one, so that it
// has nothing more to say about the user. A machine without it simply has no system proxy.
err::ResultCode askMachineProxy(const std::string& url, SystemProxyAnswer& answer)
{
    const std::string proxy = askProxyLibrary("libproxy.so.1", url).value_or(std::string());
    answer = {text::wideFromUtf8(proxy), SystemProxyAnswer::Form::Url};
    return {};
}

err::ResultCode askUserProxy(const std::string& /*url*/, SystemProxyAnswer& answer)
{
    answer = {};
    return {};
}

} // namespace quillon::platform
