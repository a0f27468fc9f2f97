#include "ui/FileDetails.h"

#include "support/TempFolder.h"
#include "ui/Table.h"

#include <QDateTime>
#include <QFileInfo>

namespace quillon::tests {
namespace {

TEST(FormatFileSize, TakesTheUnitFromTheSize)
{
    for (const QString& line : tableLines("file-sizes.txt")) {
        const QStringList row = line.split(" | ");
        EXPECT_EQ(formatFileSize(row[0].toLongLong(), true), row[1].toStdString());
        EXPECT_EQ(formatFileSize(row[0].toLongLong(), false), row[2].toStdString());
    }
}

class FileDetails : public testing::Test
{
protected:
    TempFolder folder;
    const QString path = QString::fromStdString(utf8Name(folder.write("\xC3\xA4\xE6\x97\xA5", "abc")));
};

TEST_F(FileDetails, TellOfAFileLineByLineAndOfAFolderNoSize)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime modified(QDate(2015, 1, 2), QTime(3, 4, 5));
    ASSERT_TRUE(file.setFileTime(modified, QFileDevice::FileModificationTime));
    ASSERT_TRUE(file.setFileTime(modified.addDays(1), QFileDevice::FileAccessTime));
    const QFileInfo info(path);
    QString expected = "File size: 3B\n";
    if (!info.owner().isEmpty())
        expected += "Owner: " + info.owner() + "\n";
    if (info.birthTime().isValid())
        expected += "Created: " + info.birthTime().toString() + "\n";
    expected += "Last modified: Fri Jan 2 03:04:05 2015\n"
                "Last read: Sat Jan 3 03:04:05 2015\n"
                "File permissions: -rw";
    EXPECT_EQ(getFileDetailsText(path).left(expected.size()), expected);
    EXPECT_FALSE(getFileDetailsText(info.path()).contains("File size:"));
    EXPECT_EQ(getFileDetailsText(path + "missing"), "File not found");
}

TEST_F(FileDetails, EachPermissionHasItsPlace)
{
    constexpr QFile::Permission kBits[] = {QFile::ReadOwner, QFile::WriteOwner, QFile::ExeOwner,
                                           QFile::ReadGroup, QFile::WriteGroup, QFile::ExeGroup,
                                           QFile::ReadOther, QFile::WriteOther, QFile::ExeOther};
    for (const QFile::Permission only : kBits) {
        QFile::setPermissions(path, only);
        // Some systems give a file more than it was asked for.
        const QFile::Permissions given = QFile::permissions(path);
        QString expected = "File permissions: -";
        for (std::size_t place = 0; place < std::size(kBits); ++place)
            expected += given.testFlag(kBits[place]) ? QChar("rwx"[place % 3]) : QChar('-');
        EXPECT_EQ(getFileDetailsText(path).section('\n', -1), expected);
    }
}

} // namespace
} // namespace quillon::tests
