// How the proxy is read and stored.

#include "app/CBaseApp.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

namespace keys = thisapp::settings;

constexpr std::array kProxyTypes{20, 30, 1, 2, 50, 51, 10};

std::string trimmedText(const QVariant& value)
{
    return value.toString().trimmed().toStdString();
}

int validType(int stored)
{
    return std::ranges::find(kProxyTypes, stored) != kProxyTypes.end() ? stored : 0;
}

bool isSelectType(int stored)
{
    return stored >= static_cast<int>(web::EProxySelectType::None) &&
           stored <= static_cast<int>(web::EProxySelectType::Manual);
}

} // namespace

void CBaseApp::loadNetProxy()
{
    const AppSettings store(static_cast<int>(getProductId()));
    web::NetProxy<char> proxy;
    proxy.server = trimmedText(store.value(keys::NetProxyServer, QString()));
    proxy.login = trimmedText(store.value(keys::NetProxyLogin, QString()));
    proxy.password = trimmedText(decodedPassword(store.value(keys::NetProxyPassword, QString())));
    proxy.port = store.value(keys::NetProxyPort, 0).toInt();
    proxy.type = validType(store.value(keys::NetProxyType, 0).toInt());
    m_netProxy.set(proxy);
    const int selection = store.value(keys::NetProxySelectType, 0).toInt();
    if (isSelectType(selection))
        m_proxySelectType.set(static_cast<web::EProxySelectType>(selection));
}

void CBaseApp::saveNetProxy() const
{
    AppSettings store(static_cast<int>(getProductId()));
    const web::NetProxy<char> proxy = m_netProxy.get();
    store.setValue(keys::NetProxyServer, QString::fromStdString(proxy.server));
    store.setValue(keys::NetProxyLogin, QString::fromStdString(proxy.login));
    store.setValue(keys::NetProxyPassword, encodedPassword(QString::fromStdString(proxy.password)));
    store.setValue(keys::NetProxyPort, proxy.port);
    store.setValue(keys::NetProxyType, proxy.type);
    store.setValue(keys::NetProxySelectType, static_cast<int>(m_proxySelectType.get()));
}

/// What cannot be decoded is taken as the password itself.
QVariant CBaseApp::decodedPassword(const QVariant& stored) const
{
    QVariant plain;
    return decodeSettingValue(keys::NetProxyPassword.toLatin1().constData(), stored, &plain) ? plain : stored;
}

QVariant CBaseApp::encodedPassword(const QVariant& plain) const
{
    QVariant stored;
    return encodeSettingValue(keys::NetProxyPassword.toLatin1().constData(), plain, &stored) ? stored : plain;
}

} // namespace quillon
