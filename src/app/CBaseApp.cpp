#include "app/CBaseApp.h"

#include "i18n/StrBundleTrMgr.h"
#include "logger/LogSender.h"
#include "platform/Files.h"
#include "platform/qt/UserPlaces.h"
#include "vars/Product.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace quillon {
namespace {

using Locale = i18n::internal::Locale<char>;

QString productName(std::uint32_t productId)
{
    return productId == vars::kProductId ? QString::fromUtf8(vars::kProductName) : QString();
}

/// The locale of the texts that are loaded.
Locale loadedLocale()
{
    const auto& texts = i18n::getStrBundleMgr();
    Locale locale = i18n::getDefaultLocale();
    static_cast<void>(i18n::findLocale(locale, texts.getLanguage(), texts.getCountry()));
    return locale;
}

void createFolder(const QString& path)
{
    if (!QFileInfo(path).isDir())
        platform::createFolders(path.toStdString());
}

/// A folder below that of the user's data, whose name is `names` in turn; empty ones are left out.
QString dataPath(std::initializer_list<QString> names, bool create)
{
    QString path = platform::userDataFolder();
    if (path.isEmpty())
        return {};
    for (const QString& name : names)
        path += name.isEmpty() ? QString() : QDir::separator() + name;
    if (create)
        createFolder(path);
    return path;
}

} // namespace

CBaseApp::CBaseApp()
    : m_locale(loadedLocale())
{
    logger::getLogSender()->setLevel(logger::ELogLevel::Off);
    followLoadedTexts();
}

CBaseApp::~CBaseApp()
{
    logger::LogSender<char>* const sender = logger::getLogSender();
    sender->setLevel(logger::ELogLevel::Off);
    sender->appenders().removeAllAppenders();
    sender->release();
}

void CBaseApp::getLocale(Locale& out) const
{
    out = m_locale.get();
}

bool CBaseApp::decodeSettingValue(const char* /*key*/, const QVariant& /*stored*/, QVariant* /*plain*/) const
{
    return false;
}

bool CBaseApp::encodeSettingValue(const char* /*key*/, const QVariant& /*plain*/, QVariant* /*stored*/) const
{
    return false;
}

std::string CBaseApp::getString(const char* context, const char* source) const
{
    return i18n::getStrBundleMgr().getString(context, source);
}

int CBaseApp::getTranslationCount() const
{
    return i18n::getStrBundleMgr().getTranslationCount();
}

bool CBaseApp::getTranslation(i18n::internal::Translation<char>& out, int index) const
{
    return i18n::getStrBundleMgr().getTranslation(out, index);
}

QString CBaseApp::getProductName() const
{
    return productName(getProductId());
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

QString CBaseApp::getCompanyDataPath(bool create)
{
    return dataPath({QString::fromUtf8(vars::kOrganisation)}, create);
}

QString CBaseApp::getAppDataPath(std::uint32_t parentId, std::uint32_t productId, bool create)
{
    const QString name = productName(productId);
    if (name.isEmpty())
        return {};
    const QString parent = parentId != 0 ? productName(parentId) : QString();
    return dataPath({QString::fromUtf8(vars::kOrganisation), parent, name}, create);
}

QString CBaseApp::getLogFilePath() const
{
    const QString folder = getAppDataPath(0, getProductId(), false);
    return folder.isEmpty()
               ? QString()
               : folder + QDir::separator() + getProductName().toLower() + QStringLiteral(".log");
}

} // namespace quillon
