#include "web/SystemProxy.h"

#include "support/PrintResultCode.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace quillon::web {
namespace {

constexpr const wchar_t* kConnections =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Connections";

/// What the page of the Internet options stores: version, count of changes, flags (2 for a proxy), then
/// proxy, exceptions and script address, each with its length before it.
std::string connectionSettings(const std::string& proxy)
{
    const auto number = [](std::size_t value) {
        const auto word = static_cast<DWORD>(value);
        return std::string(reinterpret_cast<const char*>(&word), sizeof word);
    };
    return number(0x46) + number(0) + number(proxy.empty() ? 1 : 3) + number(proxy.size()) + proxy +
           number(0) + number(0) + std::string(32, '\0');
}

/// Another registry of the user's for the length of a test, with a proxy in it; the real one is left alone.
class UserProxy
{
public:
    explicit UserProxy(const std::string& proxy)
    {
        const std::string settings = connectionSettings(proxy);
        RegCreateKeyExW(HKEY_CURRENT_USER, kTestKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_hive,
                        nullptr);
        RegOverridePredefKey(HKEY_CURRENT_USER, m_hive);
        RegSetKeyValueW(HKEY_CURRENT_USER, kConnections, L"DefaultConnectionSettings", REG_BINARY,
                        settings.data(), static_cast<DWORD>(settings.size()));
    }
    ~UserProxy()
    {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(m_hive);
        RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    }
    UserProxy(const UserProxy&) = delete;
    UserProxy& operator=(const UserProxy&) = delete;

private:
    static constexpr const wchar_t* kTestKey = L"Software\\KestrumTestHive";
    HKEY m_hive = nullptr;
};

TEST(SystemProxy, OfTheUsersRegistryIsFoundAndCutAtItsFirstColon)
{
    struct Case
    {
        const char* registry;
        const char* server;
        int port;
    };
    for (const Case& test : {Case{"proxy.example:3128", "proxy.example", 3128}, Case{"host", "host", 80},
                             Case{"http=a:1;https=b:2", "http=a", 1}}) {
        const UserProxy user(test.registry);
        const SGetSystemProxySettings found = querySystemProxy();
        EXPECT_EQ(found.result, err::ResultCode{});
        EXPECT_EQ(found.proxy.server, test.server);
        EXPECT_EQ(found.proxy.port, test.port);
        EXPECT_EQ(found.proxy.type, 1);
    }
}

TEST(SystemProxy, ThatIsNotSetIsAnEmptySuccess)
{
    const UserProxy user("");
    NetProxy<char> former{2, "former", 1, "name", "word"};
    EXPECT_EQ(getUserProxy(former), err::ResultCode{});
    EXPECT_EQ(former.server + former.login + former.password, "");
    EXPECT_EQ(querySystemProxy().result, err::ResultCode{});
}

} // namespace
} // namespace quillon::web
