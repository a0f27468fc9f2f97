#pragma once

#include <QSettings>

namespace quillon::platform {
struct SettingsStore;
} // namespace quillon::platform

namespace quillon {

/// The persistent key and value store of one product of this user. Made at the point of use and dropped at
/// the end of the scope, so that every read sees the store as it is; writes reach it on destruction at the
/// latest. Used on the thread that made it.
class AppSettings : public QSettings
{
public:
    /// Opens the store of `productId`, an id of the product table.
    explicit AppSettings(int productId);

    [[nodiscard]] int productId() const noexcept { return m_productId; }

    /// Stores `value`. The first one waits for the lock of a writer that was killed (see
    /// platform::prepareWrite).
    void setValue(const QString& key, const QVariant& value);

private:
    AppSettings(int productId, const platform::SettingsStore& store);

    /// `value`, or the bytes of a text that Qt would write into the file as UTF-8, which programs with Qt 5
    /// take for something else. The bytes become escapes, and every Qt reads them as the text.
    [[nodiscard]] QVariant escapable(const QVariant& value) const;
    void escapeStored();

    int m_productId;
    bool m_isWritable = false;
};

} // namespace quillon

/// The settings store of this program.
class CAppSettings : public quillon::AppSettings
{
    Q_OBJECT

public:
    CAppSettings();
};
