#include "text/Unicode.h"
#include "web/SystemProxy.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::web {
namespace {

struct Split
{
    const wchar_t* text;
    const char* serverAndPort;
};

template <class Function>
std::string splitBy(Function split, const wchar_t* text)
{
    NetProxy<wchar_t> proxy;
    split(text, proxy);
    return text::utf8FromWide(proxy.server) + ' ' + std::to_string(proxy.port);
}

TEST(ProxyString, IsCutAtItsFirstColon)
{
    for (const Split& split : {
             Split{L"", " 0"},
             Split{L"host", "host 80"},
             Split{L"host:3128", "host 3128"},
             Split{L"proxy:", "proxy 0"},
             Split{L":8080", " 8080"},
             Split{L"host: \t+81x2", "host 81"},
             Split{L"host:-5", "host -5"},
             Split{L"host:99999999999", "host 2147483647"},
             Split{L"host:-99999999999", "host -2147483648"},
             Split{L"http=a:1;https=b:2", "http=a 1"},
         })
        EXPECT_EQ(splitBy(splitProxyString, split.text), split.serverAndPort);
}

TEST(ProxyUrl, KeepsHostAndPortOnly)
{
    for (const Split& split : {
             Split{L"", " 0"},
             Split{L"direct://", " 0"},
             Split{L"http://host:3128", "host 3128"},
             Split{L"http://host/", "host 80"},
             Split{L"socks5://user:p@ss:word@host:1080/path@x:1", "host 1080"},
             Split{L"host:81", "host 81"},
             Split{L"http://user@[::1]:3128/", "[::1]:3128 3128"},
             Split{L"http://[fe80::1]", "[fe80::1]:80 80"},
             Split{L"http://[::1", "[ 0"},
         })
        EXPECT_EQ(splitBy(splitProxyUrl, split.text), split.serverAndPort);
}

} // namespace
} // namespace quillon::web
