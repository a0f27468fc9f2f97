#include "web/SystemProxy.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace quillon::web {
namespace {

TEST(SystemProxy, OfTheUsersRegistryIsFoundAndCutAtItsFirstColon)
{
    // What the page of the Internet options stores: version, count of changes, flags (2 for a proxy), then
    // proxy, exceptions and script address, each with its length before it.
    constexpr char kSettings[] = "\x46\0\0\0\0\0\0\0\3\0\0\0\x15\0\0\0"
                                 "http=a:3128;https=b:2"
                                 "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                 "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0";
    // Another registry takes the place of the user's, which is left alone.
    constexpr const wchar_t* kTestKey = L"Software\\KestrumTestHive";
    HKEY hive = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, kTestKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &hive, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, hive);
    RegSetKeyValueW(HKEY_CURRENT_USER,
                    L"Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Connections",
                    L"DefaultConnectionSettings", REG_BINARY, kSettings, sizeof kSettings - 1);
    const NetProxy<char> proxy = querySystemProxy().proxy;
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegCloseKey(hive);
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    EXPECT_EQ(proxy.server, "http=a");
    EXPECT_EQ(proxy.port, 3128);
    EXPECT_EQ(proxy.type, 1);
}

} // namespace
} // namespace quillon::web
