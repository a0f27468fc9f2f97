#include "support/CaseTable.h"
#include "text/Unicode.h"
#include "web/SystemProxy.h"

#include <gtest/gtest.h>

namespace quillon::web {
namespace {

TEST(ProxyString, IsCutAsTheTableSays)
{
    for (const tests::CaseRow& row : tests::readCaseTable("web/proxy-strings.txt")) {
        NetProxy<wchar_t> proxy;
        (row.at(0) == "url" ? splitProxyUrl : splitProxyString)(text::wideFromUtf8(row.at(1)), proxy);
        EXPECT_EQ(text::utf8FromWide(proxy.server), row.at(2)) << row.at(1);
        EXPECT_EQ(std::to_string(proxy.port), row.at(3)) << row.at(1);
    }
}

} // namespace
} // namespace quillon::web
