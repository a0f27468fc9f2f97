#include "settings/CAppSettings.h"

#include "platform/qt/UserPlaces.h"
#include "vars/Product.h"

#include <utility>

namespace quillon {
namespace {

QString productShortName(int productId)
{
    return static_cast<std::uint32_t>(productId) == vars::kProductId ? QString::fromUtf8(vars::kProductName)
                                                                     : QStringLiteral("Unknown");
}

platform::SettingsStore storeOf(int productId)
{
    return platform::settingsStore(QString::fromUtf8(vars::kOrganisation), productShortName(productId));
}

} // namespace

AppSettings::AppSettings(int productId)
    : AppSettings(productId, storeOf(productId))
{
}

AppSettings::AppSettings(int productId, const platform::SettingsStore& store)
    : QSettings(store.path, store.format)
    , m_productId(productId)
{
}

void AppSettings::setValue(const QString& key, const QVariant& value)
{
    if (!std::exchange(m_isWritable, true))
        platform::prepareWrite({fileName(), format()});
    QSettings::setValue(key, value);
}

} // namespace quillon

CAppSettings::CAppSettings()
    : AppSettings(static_cast<int>(quillon::vars::kProductId))
{
}
