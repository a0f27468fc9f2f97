#include "ui/ProductLabels.h"

#include "vars/Product.h"

#include <QCoreApplication>

QString makeLinkLabelText(const QString& text, const QString& address)
{
    return QStringLiteral("<html><head/><body><p><a href=\"") + address +
           QStringLiteral("\"><span style=\"text-decoration: underline; color:#0000ff;\">") + text +
           QStringLiteral("</span></a></p></body></html>");
}

QString supportMailAddress()
{
    return QStringLiteral("mailto:") + QString::fromUtf8(quillon::vars::kSupportEmail) +
           QStringLiteral("?subject=") + QCoreApplication::applicationName();
}
