#include "platform/SystemProxy.h"

#include "text/Unicode.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>
#include <winhttp.h>

#include <cstdint>
#include <memory>
#include <string>

namespace quillon::platform {
namespace {

struct GlobalMemoryCloser
{
    void operator()(wchar_t* text) const noexcept { GlobalFree(text); }
};
using GlobalText = std::unique_ptr<wchar_t, GlobalMemoryCloser>;

struct SessionCloser
{
    void operator()(void* session) const noexcept { WinHttpCloseHandle(session); }
};
using Session = std::unique_ptr<void, SessionCloser>;

bool isEmpty(const GlobalText& text)
{
    return !text || *text == L'\0';
}

void storeProxy(const GlobalText& text, SystemProxyAnswer& answer)
{
    answer = {text ? std::wstring(text.get()) : std::wstring(), SystemProxyAnswer::Form::HostAndPort};
}

/// What the script at `scriptUrl` answers for `url`.
err::ResultCode askScript(const std::wstring& url, const wchar_t* scriptUrl, SystemProxyAnswer& answer)
{
    const Session session(WinHttpOpen(L"WinHTTP AutoProxy Sample/1.0", WINHTTP_ACCESS_TYPE_NO_PROXY,
                                      WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, 0));
    if (!session)
        return err::systemError(GetLastError());
    WINHTTP_AUTOPROXY_OPTIONS options = {};
    options.dwFlags = WINHTTP_AUTOPROXY_CONFIG_URL;
    options.dwAutoDetectFlags = WINHTTP_AUTO_DETECT_TYPE_DHCP | WINHTTP_AUTO_DETECT_TYPE_DNS_A;
    options.lpszAutoConfigUrl = scriptUrl;
    options.fAutoLogonIfChallenged = TRUE;
    WINHTTP_PROXY_INFO info = {};
    if (!WinHttpGetProxyForUrl(session.get(), url.c_str(), &options, &info))
        return err::systemError(GetLastError());
    const GlobalText proxy(info.lpszProxy);
    const GlobalText bypass(info.lpszProxyBypass);
    storeProxy(proxy, answer);
    return {};
}

} // namespace

err::ResultCode askMachineProxy(const std::string& /*url*/, SystemProxyAnswer& answer)
{
    WINHTTP_PROXY_INFO info = {};
    if (!WinHttpGetDefaultProxyConfiguration(&info))
        return err::systemError(GetLastError());
    const GlobalText proxy(info.lpszProxy);
    const GlobalText bypass(info.lpszProxyBypass);
    storeProxy(proxy, answer);
    return {};
}

err::ResultCode askUserProxy(const std::string& url, SystemProxyAnswer& answer)
{
    WINHTTP_CURRENT_USER_IE_PROXY_CONFIG config = {};
    if (!WinHttpGetIEProxyConfigForCurrentUser(&config))
        return err::systemError(GetLastError());
    const GlobalText proxy(config.lpszProxy);
    const GlobalText bypass(config.lpszProxyBypass);
    const GlobalText scriptUrl(config.lpszAutoConfigUrl);
    if (isEmpty(proxy) && !isEmpty(scriptUrl))
        return askScript(text::wideFromUtf8(url), scriptUrl.get(), answer);
    storeProxy(proxy, answer);
    return {};
}

bool hasSystemProxySettings()
{
    return true;
}

bool showSystemProxySettings()
{
    wchar_t folder[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_SYSTEM, nullptr, SHGFP_TYPE_CURRENT, folder)))
        return false;
    const std::wstring system = std::wstring(folder) + L'\\';
    const std::wstring program = system + L"rundll32.exe";
    // The last number is the page with the connections.
    const std::wstring arguments = system + L"shell32.dll,Control_RunDLL " + system + L"inetcpl.cpl" + L",,4";
    const HINSTANCE answer =
        ShellExecuteW(nullptr, L"open", program.c_str(), arguments.c_str(), nullptr, SW_SHOWNORMAL);
    // Not a handle: numbers up to 32 are errors.
    return reinterpret_cast<std::intptr_t>(answer) > 32;
}

} // namespace quillon::platform
