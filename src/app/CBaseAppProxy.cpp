// How the proxy is read and stored.

#include "app/CBaseApp.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"

namespace quillon {
namespace {

namespace keys = thisapp::settings;

std::string trimmedText(const QVariant& value)
{
    return value.toString().trimmed().toStdString();
}

} // namespace

void CBaseApp::loadNetProxy()
{
    const AppSettings store(static_cast<int>(getProductId()));
    web::NetProxy<char> proxy;
    proxy.server = trimmedText(keys::NetProxyServer.read(store));
    proxy.login = trimmedText(keys::NetProxyLogin.read(store));
    proxy.password = trimmedText(decodedPassword(keys::NetProxyPassword.read(store)));
    proxy.port = keys::NetProxyPort.read(store);
    proxy.type = keys::NetProxyType.read(store);
    m_netProxy.set(proxy);
    const int selection =
        store.value(keys::NetProxySelectType.key, keys::NetProxySelectType.byDefault).toInt();
    if (keys::NetProxySelectType.isValid(selection))
        m_proxySelectType.set(static_cast<web::EProxySelectType>(selection));
}

void CBaseApp::saveNetProxy() const
{
    AppSettings store(static_cast<int>(getProductId()));
    const web::NetProxy<char> proxy = m_netProxy.get();
    keys::NetProxyServer.write(store, QString::fromStdString(proxy.server));
    keys::NetProxyLogin.write(store, QString::fromStdString(proxy.login));
    store.setValue(keys::NetProxyPassword, encodedPassword(QString::fromStdString(proxy.password)));
    keys::NetProxyPort.write(store, proxy.port);
    keys::NetProxyType.write(store, proxy.type);
    keys::NetProxySelectType.write(store, static_cast<int>(m_proxySelectType.get()));
}

/// What cannot be decoded is taken as the password itself.
QVariant CBaseApp::decodedPassword(const QVariant& stored) const
{
    QVariant plain;
    return decodeSettingValue(keys::NetProxyPassword.key.toLatin1().constData(), stored, &plain) ? plain
                                                                                                 : stored;
}

QVariant CBaseApp::encodedPassword(const QVariant& plain) const
{
    QVariant stored;
    return encodeSettingValue(keys::NetProxyPassword.key.toLatin1().constData(), plain, &stored) ? stored
                                                                                                 : plain;
}

} // namespace quillon
