#include "app/CBaseApp.h"

#include "vars/Product.h"

#include <QCoreApplication>

namespace quillon {

QString CBaseApp::getProductName() const
{
    return getProductId() == vars::kProductId ? QString::fromUtf8(vars::kProductName) : QString();
}

QString CBaseApp::getProductVersionString() const
{
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t patch = 0;
    std::uint32_t build = 0;
    getProductVersion(major, minor, patch, build);
    return QStringLiteral("%1.%2.%3.%4").arg(major).arg(minor).arg(patch).arg(build);
}

QString CBaseApp::getProductTitle() const
{
    const QString name = getProductName();
    return name.isEmpty() ? QString() : name + QStringLiteral(" v") + getProductVersionString();
}

void CBaseApp::applyCoreAppIdentity() const
{
    const QString organisation = QString::fromUtf8(vars::kOrganisation);
    QCoreApplication::setOrganizationDomain(organisation);
    QCoreApplication::setOrganizationName(organisation);
    QCoreApplication::setApplicationName(getProductName());
    QCoreApplication::setApplicationVersion(getProductVersionString());
}

} // namespace quillon
