#include "ui/FileDetails.h"

#include "ui/TextDirection.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <array>
#include <charconv>

namespace {

constexpr std::int64_t kKilobyte = 0x400;
constexpr std::int64_t kMegabyte = 0x100000;
constexpr std::int64_t kGigabyte = 0x40000000;

/// What lies below the next higher unit, of a number of units.
std::string belowNextUnit(std::int64_t units)
{
    return std::to_string(units & (kKilobyte - 1));
}

std::string exactSize(std::int64_t size)
{
    const std::string bytes = belowNextUnit(size) + 'B';
    if (size >= 0 && size < kMegabyte)
        return std::to_string(size >> 10) + "KB " + bytes;
    const std::string kilobytes = belowNextUnit(size >> 10) + "KB ";
    if (size >= 0 && size < kGigabyte)
        return std::to_string(size >> 20) + "MB " + kilobytes + bytes;
    return std::to_string(size >> 30) + "GB " + belowNextUnit(size >> 20) + "MB " + kilobytes + bytes;
}

/// Printing functions would take the decimal point from the locale.
std::string twoDecimals(double number)
{
    std::array<char, 32> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 2);
    return error == std::errc() ? std::string(text.data(), end) : std::string();
}

std::string roundedSize(std::int64_t size)
{
    const auto number = static_cast<double>(size);
    if (size >= 0 && size < kMegabyte)
        return twoDecimals(number / kKilobyte) + "KB";
    if (size >= 0 && size < kGigabyte)
        return twoDecimals(number / kMegabyte) + "MB";
    return twoDecimals(number / kGigabyte) + "GB";
}

/// The texts belong to the window that shows them.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CMainWindow)
};

QString line(const QString& label, const QString& value)
{
    return label + QLatin1Char(' ') + isolated(value) + QLatin1Char('\n');
}

/// A time as Qt::TextDate has it with Qt 5: day and month in the language of the user's desktop. With Qt 6
/// that is English everywhere.
QString timeText(const QDateTime& time)
{
    const QDate date = time.date();
    const QLocale desktop = QLocale::system();
    return desktop.dayName(date.dayOfWeek(), QLocale::ShortFormat) + QLatin1Char(' ') +
           desktop.monthName(date.month(), QLocale::ShortFormat) +
           QLocale::c().toString(time, QStringLiteral(" d HH:mm:ss yyyy"));
}

QString timeLine(const QString& label, const QDateTime& time)
{
    return time.isValid() && !time.isNull() ? line(label, timeText(time)) : QString();
}

std::string permissionLetters(QFile::Permissions bits)
{
    const auto has = [bits](QFile::Permission bit) { return bits.testFlag(bit); };
    return formatFilePermissions(has(QFile::ReadOwner), has(QFile::WriteOwner), has(QFile::ExeOwner),
                                 has(QFile::ReadGroup), has(QFile::WriteGroup), has(QFile::ExeGroup),
                                 has(QFile::ReadOther), has(QFile::WriteOther), has(QFile::ExeOther));
}

} // namespace

QString getFileDetailsText(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return Texts::tr("File not found");
    QString text;
    if (info.isFile())
        text += line(Texts::tr("File size:"), QString::fromStdString(formatFileSize(info.size(), true)));
    if (const QString owner = info.owner(); !owner.isEmpty())
        text += line(Texts::tr("Owner:"), owner);
    text += timeLine(Texts::tr("Created:"), info.birthTime());
    text += timeLine(Texts::tr("Last modified:"), info.lastModified());
    text += timeLine(Texts::tr("Last read:"), info.lastRead());
    return text + Texts::tr("File permissions:") + QLatin1Char(' ') +
           isolated(QLatin1Char('-') + QString::fromStdString(permissionLetters(info.permissions())));
}

std::string formatFileSize(std::int64_t size, bool exact)
{
    if (size >= 0 && size < kKilobyte)
        return std::to_string(size) + 'B';
    return exact ? exactSize(size) : roundedSize(size);
}

std::string formatFilePermissions(bool ownerRead, bool ownerWrite, bool ownerExecute, bool groupRead,
                                  bool groupWrite, bool groupExecute, bool otherRead, bool otherWrite,
                                  bool otherExecute)
{
    const auto letters = [](bool read, bool write, bool execute) {
        return std::string{read ? 'r' : '-', write ? 'w' : '-', execute ? 'x' : '-'};
    };
    return letters(ownerRead, ownerWrite, ownerExecute) + letters(groupRead, groupWrite, groupExecute) +
           letters(otherRead, otherWrite, otherExecute);
}
