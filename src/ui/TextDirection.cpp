#include "ui/TextDirection.h"

#include <QGuiApplication>
#include <QLocale>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextOption>
#include <QTransform>

namespace {

constexpr QChar kLeftToRightIsolate(0x2066);
constexpr QChar kPopDirectionalIsolate(0x2069);

} // namespace

void followDirectionOf(const std::string& language)
{
    QGuiApplication::setLayoutDirection(QLocale(QString::fromStdString(language)).textDirection());
}

QString isolated(const QString& value)
{
    return QGuiApplication::isRightToLeft() ? kLeftToRightIsolate + value + kPopDirectionalIsolate : value;
}

QIcon pointingIcon(const QString& name)
{
    QIcon icon(name);
    if (!QGuiApplication::isRightToLeft())
        return icon;
    QIcon mirrored;
    for (const QSize& size : icon.availableSizes())
        mirrored.addPixmap(icon.pixmap(size).transformed(QTransform::fromScale(-1, 1)));
    return mirrored;
}

void keepButtonTextsCentred(const QWidget& dialog)
{
    if (!QGuiApplication::isRightToLeft())
        return;
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (!button->text().isEmpty())
            button->setIcon({});
}

void showLeftToRight(QPlainTextEdit& digest)
{
    digest.setLayoutDirection(Qt::LeftToRight);
    QTextOption option = digest.document()->defaultTextOption();
    option.setTextDirection(Qt::LeftToRight);
    digest.document()->setDefaultTextOption(option);
}
