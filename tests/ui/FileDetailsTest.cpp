#include "ui/FileDetails.h"

#include "support/CaseTable.h"
#include "support/TempFolder.h"

#include <QDateTime>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

TEST(FormatFileSize, TakesTheUnitFromTheSize)
{
    for (const CaseRow& row : readCaseTable("ui/file-sizes.txt")) {
        EXPECT_EQ(formatFileSize(std::stoll(row[0]), true), row[1]);
        EXPECT_EQ(formatFileSize(std::stoll(row[0]), false), row[2]);
    }
}

TEST(FileDetails, TellOfAFileLineByLineAndOfAFolderNoSize)
{
    const TempFolder folder;
    const QString path = QString::fromStdString(utf8Name(folder.write("\xC3\xA4\xE6\x97\xA5", "abc")));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime modified(QDate(2015, 1, 2), QTime(3, 4, 5));
    ASSERT_TRUE(file.setFileTime(modified, QFileDevice::FileModificationTime));
    ASSERT_TRUE(file.setFileTime(modified.addDays(1), QFileDevice::FileAccessTime));
    file.close();
    const QFileInfo info(path);
    QString expected = "File size: 3B\n";
    if (!info.owner().isEmpty())
        expected += "Owner: " + info.owner() + "\n";
    if (info.birthTime().isValid())
        expected += "Created: " + info.birthTime().toString() + "\n";
    expected += "Last modified: Fri Jan 2 03:04:05 2015\nLast read: Sat Jan 3 03:04:05 2015\n"
                "File permissions: -";
    EXPECT_FALSE(getFileDetailsText(info.path()).contains("File size:"));
    EXPECT_EQ(getFileDetailsText(path + "missing"), "File not found");

    const QFile::Permission bits[] = {QFile::ReadOwner, QFile::WriteOwner, QFile::ExeOwner,
                                      QFile::ReadGroup, QFile::WriteGroup, QFile::ExeGroup,
                                      QFile::ReadOther, QFile::WriteOther, QFile::ExeOther};
    for (const QFile::Permission only : bits) {
        QFile::setPermissions(path, only);
        QString letters; // some systems give a file more than it was asked for
        for (std::size_t place = 0; place < std::size(bits); ++place)
            letters += QFile::permissions(path).testFlag(bits[place]) ? QChar("rwx"[place % 3]) : QChar('-');
        EXPECT_EQ(getFileDetailsText(path), expected + letters) << letters.toStdString();
    }
}

} // namespace
} // namespace quillon::tests
