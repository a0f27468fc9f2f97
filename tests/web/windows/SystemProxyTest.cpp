#include "web/SystemProxy.h"

#include "support/PrintResultCode.h"
#include "sync/ScopeExit.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

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

/// Gives the user another registry with a proxy in it until the end of the scope; the real one is left alone.
auto withUserProxy(const std::string& proxy)
{
    constexpr const wchar_t* kTestKey = L"Software\\KestrumTestHive";
    const std::string settings = connectionSettings(proxy);
    HKEY hive = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, kTestKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &hive, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, hive);
    RegSetKeyValueW(HKEY_CURRENT_USER, kConnections, L"DefaultConnectionSettings", REG_BINARY,
                    settings.data(), static_cast<DWORD>(settings.size()));
    return sync::ScopeExit([hive] {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(hive);
        RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    });
}

TEST(SystemProxy, OfTheUsersRegistryIsFoundAndCutAtItsFirstColon)
{
    const std::tuple<const char*, const char*, int, int> rows[] = {
        {"proxy.example:3128", "proxy.example", 3128, 1},
        {"host", "host", 80, 1},
        {"http=a:1;https=b:2", "http=a", 1, 1},
        {"", "", 0, 0},
    };
    for (const auto& [registry, server, port, type] : rows) {
        const auto user = withUserProxy(registry);
        EXPECT_EQ(querySystemProxy().proxy.server, server);
        NetProxy<char> proxy{2, "former", 1, "name", "word"};
        EXPECT_EQ(getUserProxy(proxy), err::ResultCode{});
        EXPECT_EQ(proxy.server, server);
        EXPECT_EQ(proxy.port, port);
        EXPECT_EQ(proxy.type, type);
        EXPECT_EQ(proxy.login + proxy.password, "");
    }
}

} // namespace
} // namespace quillon::web
