// The settings as a file, which they are on Unix only.

#include "settings/CAppSettings.h"

#include "settings/DefaultHashAlgorithm.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <optional>

namespace thisapp {
namespace {

using Stored = std::optional<SHashAlgId>;

TEST(CAppSettings, OfAProductThatIsNotInTheTableAreNotThisProgramsSettings)
{
    CAppSettings().setValue("Key", 1);
    const quillon::AppSettings other(21);
    EXPECT_EQ(other.productId(), 21);
    EXPECT_FALSE(other.contains("Key"));
    EXPECT_TRUE(other.fileName().contains("Unknown"));
}

QString settingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/Quillon.example/Kestrum.conf";
}

TEST(CAppSettings, LieInAFileOfTheOrganisationThatOnlyTheUserCanRead)
{
    QFile::remove(settingsFile());
    CAppSettings().setValue("Key", 1);
    ASSERT_TRUE(QFileInfo::exists(settingsFile()));
    EXPECT_EQ(QFile::permissions(settingsFile()) & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
}

TEST(CAppSettings, OfADamagedFileAreTheDefaults)
{
    QFile file(settingsFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArrayLiteral("[Gen\0eral\nDefaultCryptoLibrary=300\n=\n\xFF\xFE[[["));
    file.close();
    EXPECT_EQ(readDefaultHashAlgorithm(), Stored({1, 11}));
}

TEST(CAppSettings, ThatCannotBeKeptReadAsTheDefaults)
{
    const QByteArray former = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", "/dev/null");
    writeDefaultHashAlgorithm({300, 105});
    EXPECT_EQ(readDefaultHashAlgorithm(), Stored({1, 11}));
    qputenv("XDG_CONFIG_HOME", former);
}
} // namespace
} // namespace thisapp
