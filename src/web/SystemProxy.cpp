#include "web/SystemProxy.h"

#include "platform/SystemProxy.h"
#include "text/Unicode.h"
#include "vars/Product.h"

#include <algorithm>
#include <limits>
#include <string>

namespace quillon::web {
namespace {

using platform::SystemProxyAnswer;

constexpr std::int32_t kDefaultPort = 80;

constexpr bool isBlank(wchar_t c) noexcept
{
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

/// The number at the start of `text`, behind blanks and a sign, up to the first other character. One that is
/// too large becomes the nearest that fits. This is how the Windows runtime reads numbers.
std::int32_t leadingNumber(std::wstring_view text)
{
    text.remove_prefix(static_cast<std::size_t>(std::ranges::find_if_not(text, isBlank) - text.begin()));
    const bool isNegative = text.starts_with(L'-');
    if (isNegative || text.starts_with(L'+'))
        text.remove_prefix(1);
    constexpr std::int64_t kLimit = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    std::int64_t number = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9')
            break;
        number = std::min(number * 10 + (c - L'0'), kLimit);
    }
    return static_cast<std::int32_t>(isNegative ? -number : std::min(number, kLimit - 1));
}

/// Host and port of an URL, in the form of a proxy string.
std::wstring_view authorityOf(std::wstring_view url)
{
    constexpr std::wstring_view kSchemeEnd = L"://";
    if (const auto scheme = url.find(kSchemeEnd); scheme != std::wstring_view::npos)
        url.remove_prefix(scheme + kSchemeEnd.size());
    url = url.substr(0, url.find_first_of(L"/?#"));
    // The last one, as a password may hold another.
    if (const auto user = url.rfind(L'@'); user != std::wstring_view::npos)
        url.remove_prefix(user + 1);
    return url;
}

void setBracketedServer(std::wstring_view authority, NetProxy<wchar_t>& proxy)
{
    const auto colon = authority.find(L':', authority.find(L']'));
    proxy.port = colon == std::wstring_view::npos ? kDefaultPort : leadingNumber(authority.substr(colon + 1));
    proxy.server = std::wstring(authority.substr(0, colon)) + L':' + std::to_wstring(proxy.port);
}

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

void splitProxyString(std::wstring_view text, NetProxy<wchar_t>& proxy)
{
    if (text.empty())
        return;
    const auto colon = text.find(L':');
    proxy.server = text.substr(0, colon);
    proxy.port = colon == std::wstring_view::npos ? kDefaultPort : leadingNumber(text.substr(colon + 1));
}

void splitProxyUrl(std::wstring_view url, NetProxy<wchar_t>& proxy)
{
    if (url.starts_with(L"direct:"))
        return;
    const std::wstring_view authority = authorityOf(url);
    if (authority.starts_with(L'[') && authority.find(L']') != std::wstring_view::npos)
        setBracketedServer(authority, proxy);
    else
        splitProxyString(authority, proxy);
}

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
