#include "settings/DefaultHashAlgorithm.h"

#include "settings/CAppSettings.h"

#include <QVariant>

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace thisapp {
namespace {

using Stored = std::optional<SHashAlgId>;

class DefaultHashAlgorithm : public testing::Test
{
protected:
    DefaultHashAlgorithm() { CAppSettings().clear(); }
};

TEST_F(DefaultHashAlgorithm, InAnEmptyStoreIsSha256)
{
    EXPECT_EQ(readDefaultHashAlgorithm(), Stored({1, 11}));
}

TEST_F(DefaultHashAlgorithm, IsReadAsItWasWritten)
{
    writeDefaultHashAlgorithm({300, 105});
    EXPECT_EQ(readDefaultHashAlgorithm(), Stored({300, 105}));
    EXPECT_EQ(CAppSettings().value("DefaultCryptoLibrary").toInt(), 300);
    EXPECT_EQ(CAppSettings().value("DefaultCryptoHashAlgorithm").toInt(), 105);
}

TEST_F(DefaultHashAlgorithm, IsNoneWhereTheUserWantsNoneAtTheStart)
{
    for (const QVariant& use : {QVariant(false), QVariant("false"), QVariant(0)}) {
        CAppSettings().setValue("UseDefaultAlgorithmAtStarting", use);
        EXPECT_EQ(readDefaultHashAlgorithm(), std::nullopt) << use.toString().toStdString();
    }
}

TEST_F(DefaultHashAlgorithm, IsNoneWhereAStoredIdIsNotInItsTableAndTheStoreStaysAsItIs)
{
    const std::pair<const char*, QVariant> rows[]{
        {"DefaultCryptoLibrary", 2},       {"DefaultCryptoLibrary", -1},
        {"DefaultCryptoLibrary", "x"},     {"DefaultCryptoHashAlgorithm", 302},
        {"DefaultCryptoHashAlgorithm", 0}, {"DefaultCryptoHashAlgorithm", "x"},
    };
    for (const auto& [key, value] : rows) {
        CAppSettings().clear();
        CAppSettings().setValue(key, value);
        EXPECT_EQ(readDefaultHashAlgorithm(), std::nullopt) << key << ' ' << value.toString().toStdString();
        EXPECT_EQ(CAppSettings().value(key).toString(), value.toString());
    }
}

TEST_F(DefaultHashAlgorithm, LibraryAndAlgorithmThatDoNotBelongTogetherAreTheCallersMatter)
{
    CAppSettings().setValue("DefaultCryptoHashAlgorithm", 100);
    EXPECT_EQ(readDefaultHashAlgorithm(), Stored({1, 100}));
}

} // namespace
} // namespace thisapp
