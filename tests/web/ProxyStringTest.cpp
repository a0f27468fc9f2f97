#include "text/Unicode.h"
#include "web/SystemProxy.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace quillon::web {
namespace {

TEST(ProxyString, IsCutAsTheTableSays)
{
    std::ifstream table(KESTRUM_TEST_DATA "/web/proxy-strings.txt");
    std::string line;
    std::getline(table, line);
    int rows = 0;
    for (; std::getline(table, line); ++rows) {
        std::istringstream row(line);
        std::string kind;
        std::string text;
        std::string expected;
        std::getline(std::getline(std::getline(row, kind, '|'), text, '|'), expected);
        NetProxy<wchar_t> proxy;
        (kind == "url" ? splitProxyUrl : splitProxyString)(text::wideFromUtf8(text), proxy);
        EXPECT_EQ(text::utf8FromWide(proxy.server) + ' ' + std::to_string(proxy.port), expected) << line;
    }
    EXPECT_GT(rows, 0) << "the table was not found";
}

} // namespace
} // namespace quillon::web
