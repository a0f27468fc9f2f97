#include "ui/AlgorithmProviders.h"
#include "ui/Table.h"

#include <QListWidget>

namespace quillon::tests {
namespace {

TEST(AlgorithmList, HasTheRowsOfTheTableInPlaceOfItsFormerOnes)
{
    const ListedAlgorithms provider;
    QListWidget toolBar;
    QListWidget dialog;
    toolBar.addItem("old row");
    fillAlgorithmList(&provider, &toolBar, false);
    fillAlgorithmList(&provider, &dialog, true);
    QStringList rows;
    for (int row = 0; row < toolBar.count() && row < dialog.count(); ++row)
        rows += toolBar.item(row)->text() + " | " + dialog.item(row)->text();
    EXPECT_EQ(rows, tableLines("algorithm-list.txt"));
}

TEST(AlgorithmItemData, WhatIsNoAlgorithmReadsAsZero)
{
    const auto parse = [](const QVariant& lib, const QVariant& alg) {
        return parseAlgorithmItemData(QVariantMap{{"lib", lib}, {"alg", alg}});
    };
    using Id = thisapp::SHashAlgId;
    EXPECT_EQ(parse(300, 11), (Id{300, 11})) << "of no use, but both exist";
    EXPECT_EQ(parse(2, 11), (Id{0, 11}));
    EXPECT_EQ(parse(1, 302), (Id{1, 0}));
    EXPECT_EQ(parse({}, 11), Id{});
    EXPECT_EQ(parse(1, {}), Id{});
    EXPECT_EQ(parse(Q_INT64_C(4294967297), Q_INT64_C(-4294967285)), Id{});
}

} // namespace
} // namespace quillon::tests
