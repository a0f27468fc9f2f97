#include "i18n/TranslationListLoaderXml.h"

#include "support/CaseTable.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon::i18n::internal {
namespace {

TEST(TranslationListLoaderXml, ReadsTheListOrTellsWhyThereIsNone)
{
    const tests::TempFolder folder;
    TranslationListLoaderXml<char> loader;
    for (const tests::CaseRow& row : tests::readCaseTable("i18n/lists.txt")) {
        const err::ResultCode result = loader.load("any", tests::utf8Name(folder.write("list", row[0])));
        EXPECT_EQ(std::to_string(result.code), row[1]) << row[0].substr(0, 200);
        std::vector<Translation<char>> list;
        loader.getList(list);
        std::vector<std::string> rows;
        for (const auto& each : list)
            rows.push_back(std::to_string(each.type) + '/' + each.displayName + '/' + each.language + '/' +
                           each.country + '/' + each.file + '/' + each.description);
        EXPECT_EQ(tests::inBrackets(rows), row[2]) << row[0].substr(0, 200);
    }
    EXPECT_EQ(loader.load("any", tests::utf8Name(folder.file("none"))), (err::ResultCode{5, 41}));
    EXPECT_EQ(TranslationListLoaderFactory<char>().create(nullptr), (err::ResultCode{5, 6}));
}

} // namespace
} // namespace quillon::i18n::internal
