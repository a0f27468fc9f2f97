#include "web/SystemProxy.h"

#include "platform/SystemProxy.h"
#include "text/Unicode.h"
#include "vars/Product.h"
#include "web/NetProxy.h"

namespace quillon::web {
namespace {

using platform::SystemProxyAnswer;

constexpr std::int32_t kFoundProxyType = 1;

template <class Ask>
err::ResultCode query(Ask ask, NetProxy<wchar_t>& proxy)
{
    SystemProxyAnswer answer;
    if (const err::ResultCode asked = ask(vars::kProbeUrl, answer); !err::succeeded(asked))
        return asked;
    NetProxy<wchar_t> found;
    if (answer.form == SystemProxyAnswer::Form::Url)
        splitProxyUrl(answer.proxy, found);
    else
        splitProxyString(answer.proxy, found);
    const bool isFound =
        answer.form == SystemProxyAnswer::Form::Url ? !found.server.empty() : !answer.proxy.empty();
    found.type = isFound ? kFoundProxyType : 0;
    proxy = found;
    return {};
}

template <class Query>
err::ResultCode getNarrow(Query queryWide, NetProxy<char>& proxy)
{
    NetProxy<wchar_t> wide;
    if (const err::ResultCode queried = queryWide(wide); !err::succeeded(queried))
        return queried;
    proxy = {wide.type, text::utf8FromWide(wide.server), wide.port, text::utf8FromWide(wide.login),
             text::utf8FromWide(wide.password)};
    return {};
}

} // namespace

err::ResultCode queryDefaultProxy(NetProxy<wchar_t>& proxy)
{
    return query(platform::askMachineProxy, proxy);
}

err::ResultCode queryUserProxy(NetProxy<wchar_t>& proxy)
{
    return query(platform::askUserProxy, proxy);
}

err::ResultCode getDefaultProxy(NetProxy<char>& proxy)
{
    return getNarrow(queryDefaultProxy, proxy);
}

err::ResultCode getUserProxy(NetProxy<char>& proxy)
{
    return getNarrow(queryUserProxy, proxy);
}

SGetSystemProxySettings querySystemProxy()
{
    SGetSystemProxySettings settings;
    settings.result = getDefaultProxy(settings.proxy);
    if (!err::succeeded(settings.result) || !settings.proxy.isProxy()) {
        settings.proxy = {};
        settings.result = getUserProxy(settings.proxy);
    }
    return settings;
}

} // namespace quillon::web
