#include "settings/CAppSettings.h"

#include "platform/qt/QtVersion.h"
#include "platform/qt/UserPlaces.h"
#include "vars/Product.h"

#include <algorithm>
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
    if (!std::exchange(m_isWritable, true)) {
        platform::prepareWrite({fileName(), format()});
        escapeStored();
    }
    QSettings::setValue(key, escapable(value));
}

QVariant AppSettings::escapable(const QVariant& value) const
{
    const QString text = value.userType() == QMetaType::QString ? value.toString() : QString();
    const bool isAscii = std::ranges::all_of(text, [](QChar unit) { return unit.unicode() < 0x80; });
    const bool isEscaped = isAscii || format() != IniFormat || !platform::kWritesUtf8Settings;
    return isEscaped ? value : QVariant(text.toUtf8());
}

// A write of one value writes what was read of the others, too.
void AppSettings::escapeStored()
{
    for (const QString& key : allKeys()) {
        const QVariant stored = value(key);
        if (const QVariant escaped = escapable(stored); escaped.userType() != stored.userType())
            QSettings::setValue(key, escaped);
    }
}

} // namespace quillon

CAppSettings::CAppSettings()
    : AppSettings(static_cast<int>(quillon::vars::kProductId))
{
}
