#include "ui/AlgorithmList.h"

#include "ui/AlgorithmProviders.h"

#include <QListWidget>
#include <QStringList>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

using thisapp::SHashAlgId;

QStringList rowTexts(const QListWidget& list)
{
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        texts += list.item(row)->text();
    return texts;
}

QStringList filledTexts(bool showAllSizes)
{
    const ListedAlgorithms provider;
    QListWidget list;
    fillAlgorithmList(&provider, &list, showAllSizes);
    return rowTexts(list);
}

TEST(AlgorithmList, TheShortFormShowsSizesOnlyWhereTheNameTellsNone)
{
    const QStringList expected{"SHA1 (20-bite)",
                               "SHA-224",
                               "SHA-256",
                               "SHA-384",
                               "SHA-512",
                               "SHA3-224",
                               "SHA3-256",
                               "SHA3-384",
                               "SHA3-512",
                               "Tiger-192",
                               "Whirlpool (64-bite)",
                               "RIPEMD-128",
                               "RIPEMD-160",
                               "RIPEMD-256",
                               "RIPEMD-320",
                               "Skein256-224",
                               "Skein256-256",
                               "Skein512-224",
                               "Skein512-256",
                               "Skein512-384",
                               "Skein512-512",
                               "Skein1024-224",
                               "Skein1024-256",
                               "Skein1024-384",
                               "Skein1024-512",
                               "Skein1024-1024",
                               "MD2 (16-bite)",
                               "MD4 (16-bite)",
                               "MD5 (16-bite)",
                               "Panama (32-bite)",
                               "Adler32 (4-bite)",
                               "CRC32 (4-bite)"};
    EXPECT_EQ(filledTexts(false), expected);
}

TEST(AlgorithmList, TheLongFormShowsEverySize)
{
    const QStringList texts = filledTexts(true);
    ASSERT_EQ(texts.size(), 32);
    EXPECT_EQ(texts.at(0), "SHA1 (20-byte)");
    EXPECT_EQ(texts.at(2), "SHA-256 (32-byte)");
    EXPECT_EQ(texts.at(25), "Skein1024-1024 (128-byte)");
    EXPECT_EQ(texts.at(31), "CRC32 (4-byte)");
}

TEST(AlgorithmList, FillingReplacesTheRowsAndSkipsWhatTheProviderRefuses)
{
    const ListedAlgorithms provider({{1, 1}, {}, {300, 101}});
    QListWidget list;
    list.addItem("old row");
    fillAlgorithmList(&provider, &list, false);
    EXPECT_EQ(rowTexts(list), (QStringList{"SHA1 (20-bite)", "Skein256-256"}));
    EXPECT_EQ(findAlgorithmRow(list, {300, 101}), 1);
    EXPECT_EQ(findAlgorithmRow(list, {1, 101}), -1);
}

TEST(AlgorithmList, FillingWithoutAProviderEmptiesTheList)
{
    QListWidget list;
    list.addItem("old row");
    fillAlgorithmList(nullptr, &list, false);
    EXPECT_EQ(list.count(), 0);
    fillAlgorithmList(nullptr, nullptr, false);
}

TEST(AlgorithmItemData, EveryAlgorithmComesBackFromItsItemData)
{
    for (const crypto::HashAlgorithm& row : crypto::hashCatalogue())
        EXPECT_EQ(parseAlgorithmItemData(makeAlgorithmItemData(row.id)), row.id);
    EXPECT_EQ(makeAlgorithmItemData({300, 100}), (QVariantMap{{"lib", 300}, {"alg", 100}}));
}

struct ItemDataCase
{
    const char* what;
    QVariant data;
    SHashAlgId expected;
};

TEST(AlgorithmItemData, WhatIsNoAlgorithmReadsAsZero)
{
    const auto map = [](const QVariant& lib, const QVariant& alg) {
        return QVariant(QVariantMap{{"lib", lib}, {"alg", alg}});
    };
    const ItemDataCase cases[] = {
        {"invalid", {}, {}},
        {"null string", QVariant(QVariant::String), {}},
        {"text", "lib", {}},
        {"number", 11, {}},
        {"empty map", QVariantMap(), {}},
        {"no algorithm", QVariantMap{{"lib", 1}}, {}},
        {"no library", QVariantMap{{"alg", 11}}, {}},
        {"other case", QVariantMap{{"LIB", 1}, {"ALG", 11}}, {}},
        {"null library", map(QVariant(QVariant::Int), 11), {}},
        {"unknown library", map(2, 11), {0, 11}},
        {"unknown algorithm", map(1, 302), {1, 0}},
        {"negative", map(-1, -11), {}},
        {"more than 32 bits", map(Q_INT64_C(4294967297), Q_INT64_C(4294967307)), {}},
        {"words", map("one", "eleven"), {}},
        {"reserved library", map(200, 11), {200, 11}},
        {"pair that does not belong together", map(1, 100), {1, 100}},
    };
    for (const ItemDataCase& item : cases)
        EXPECT_EQ(parseAlgorithmItemData(item.data), item.expected) << item.what;
}

} // namespace
} // namespace quillon::tests
