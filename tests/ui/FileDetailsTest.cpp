#include "ui/FileDetails.h"

#include "support/TempFolder.h"
#include "ui/PrintQString.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <limits>
#include <locale>

namespace quillon::tests {
namespace {

struct SizeCase
{
    std::int64_t size;
    const char* exact;
    const char* rounded;
};

constexpr SizeCase kSizes[] = {
    {0, "0B", "0B"},
    {1023, "1023B", "1023B"},
    {1024, "1KB 0B", "1.00KB"},
    {1536, "1KB 512B", "1.50KB"},
    {1047552 + 1023, "1023KB 1023B", "1024.00KB"},
    {1048576, "1MB 0KB 0B", "1.00MB"},
    {1048576 * 5 + 1024 * 6 + 7, "5MB 6KB 7B", "5.01MB"},
    {1073741823, "1023MB 1023KB 1023B", "1024.00MB"},
    {1073741824, "1GB 0MB 0KB 0B", "1.00GB"},
    {5368709121, "5GB 0MB 0KB 1B", "5.00GB"},
    {std::numeric_limits<std::int64_t>::max(), "8589934591GB 1023MB 1023KB 1023B", "8589934592.00GB"},
    {-1, "-1GB 1023MB 1023KB 1023B", "-0.00GB"},
    {std::numeric_limits<std::int64_t>::min(), "-8589934592GB 0MB 0KB 0B", "-8589934592.00GB"},
};

TEST(FormatFileSize, TakesTheUnitFromTheSize)
{
    for (const SizeCase& item : kSizes) {
        EXPECT_EQ(formatFileSize(item.size, true), item.exact);
        EXPECT_EQ(formatFileSize(item.size, false), item.rounded);
    }
}

struct CommaForDecimals : std::numpunct<char>
{
    [[nodiscard]] char do_decimal_point() const override { return ','; }
    [[nodiscard]] std::string do_grouping() const override { return "\3"; }
};

TEST(FormatFileSize, DoesNotDependOnTheLocale)
{
    const std::locale former = std::locale::global(std::locale(std::locale(), new CommaForDecimals));
    const std::string rounded = formatFileSize(1536, false);
    const std::string exact = formatFileSize(1073741824LL * 4321, true);
    std::locale::global(former);
    EXPECT_EQ(rounded, "1.50KB");
    EXPECT_EQ(exact, "4321GB 0MB 0KB 0B");
}

TEST(FormatFilePermissions, EachRightHasItsPlace)
{
    for (std::size_t place = 0; place < 9; ++place) {
        bool set[9] = {};
        set[place] = true;
        std::string expected = "---------";
        expected[place] = "rwx"[place % 3];
        EXPECT_EQ(
            formatFilePermissions(set[0], set[1], set[2], set[3], set[4], set[5], set[6], set[7], set[8]),
            expected);
    }
}

class FileDetails : public testing::Test
{
protected:
    /// Makes a file of 1536 bytes with known times and rights.
    QString makeFile(const char* name) const
    {
        const QString path = QString::fromStdString(utf8Name(folder.file(name)));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(1536, 'x'));
        file.flush();
        const QDateTime modified(QDate(2015, 1, 2), QTime(3, 4, 5));
        EXPECT_TRUE(file.setFileTime(modified, QFileDevice::FileModificationTime));
        EXPECT_TRUE(file.setFileTime(modified.addDays(1), QFileDevice::FileAccessTime));
        EXPECT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                        QFile::ExeGroup | QFile::WriteOther));
        return path;
    }

    TempFolder folder;
};

TEST_F(FileDetails, AFileIsToldLineByLine)
{
    const QString path = makeFile("plain \xC3\xA4\xE6\x97\xA5.bin");
    const QFileInfo info(path);
    QString expected = "File size: 1KB 512B\n";
    if (!info.owner().isEmpty())
        expected += "Owner: " + info.owner() + "\n";
    if (info.birthTime().isValid())
        expected += "Created: " + info.birthTime().toString() + "\n";
    expected += "Last modified: Fri Jan 2 03:04:05 2015\n"
                "Last read: Sat Jan 3 03:04:05 2015\n";
    // Where the system has no permissions of groups and others it shows the owner's for all three.
    const bool hasGroups = !info.permission(QFile::WriteGroup);
    expected += hasGroups ? "File permissions: -rw-r-x-w-" : "File permissions: -rw-rw-rw-";
    EXPECT_EQ(getFileDetailsText(path), expected);
}

TEST_F(FileDetails, AFolderHasNoSize)
{
    const QString text = getFileDetailsText(QString::fromStdString(utf8Name(folder.path())));
    EXPECT_FALSE(text.contains("File size:"));
    EXPECT_TRUE(text.contains("\nFile permissions: -rwx"));
}

TEST_F(FileDetails, WhatIsNotThereIsNotFound)
{
    EXPECT_EQ(getFileDetailsText(QString::fromStdString(utf8Name(folder.file("missing")))), "File not found");
    EXPECT_EQ(getFileDetailsText(QString()), "File not found");
}

} // namespace
} // namespace quillon::tests
