#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace quillon::tests {

/// A session bus of the test's own, named by the environment while it runs, with a dock on it that writes
/// down what launcher entries tell it. Unix only, as the bus is.
class LauncherBus : public QObject
{
    Q_OBJECT

public:
    LauncherBus()
    {
        m_daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        if (!m_daemon.waitForStarted() || !m_daemon.waitForReadyRead())
            return;
        const QByteArray address = m_daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        QDBusConnection dock = QDBusConnection::connectToBus(QString::fromLocal8Bit(address), kDockName);
        m_isListening =
            dock.connect({}, "/com/canonical/unity/launcherentry/1", "com.canonical.Unity.LauncherEntry",
                         "Update", this, SLOT(onUpdate(QString, QVariantMap)));
    }

    ~LauncherBus() override
    {
        QDBusConnection::disconnectFromBus(kDockName);
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    [[nodiscard]] bool isListening() const noexcept { return m_isListening; }

    /// What came so far, each as "hidden 0.25" or "shown 1".
    [[nodiscard]] const QStringList& updates() const noexcept { return m_updates; }

    /// Whose entry the last update was about.
    [[nodiscard]] const QString& application() const noexcept { return m_application; }

private slots:
    void onUpdate(const QString& application, const QVariantMap& properties)
    {
        m_application = application;
        const bool isShown = properties.value("progress-visible").toBool();
        m_updates += QStringLiteral("%1 %2")
                         .arg(isShown ? "shown" : "hidden")
                         .arg(properties.value("progress").toDouble());
    }

private:
    static constexpr auto kDockName = "dock";

    QProcess m_daemon;
    bool m_isListening = false;
    QStringList m_updates;
    QString m_application;
};

} // namespace quillon::tests
