#include "platform/qt/TaskbarProgress.h"

#include "vars/Product.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QVariantMap>

#include <algorithm>
#include <chrono>
#include <future>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace quillon::platform {
namespace {

// How long the end of the program waits for a bus that has not answered yet.
constexpr std::chrono::milliseconds kLongestGoodbye{500};

/// Without an address the bus library would start a bus of its own, which no desktop listens to.
bool hasSessionBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

/// The way to the session bus. Connecting can take as long as the bus likes, so a thread of its own does it,
/// at the first message; until then only the latest message is kept, as it makes the former ones void. Shared
/// with that thread, which a bus that never answers may keep beyond the owner's life.
class SessionBus : public std::enable_shared_from_this<SessionBus>
{
public:
    void send(const QDBusMessage& message)
    {
        const std::lock_guard guard(m_lock);
        if (m_connected)
            QDBusConnection::sessionBus().send(message);
        else
            m_latest = message;
        if (!std::exchange(m_started, true))
            startConnecting();
    }

    /// Leaves the thread to itself where the bus still does not answer.
    void leave()
    {
        if (!m_connector.joinable())
            return;
        if (m_done.wait_for(kLongestGoodbye) == std::future_status::ready)
            m_connector.join();
        else
            m_connector.detach();
    }

private:
    void startConnecting()
    {
        std::packaged_task<void()> task([self = shared_from_this()] { self->connect(); });
        m_done = task.get_future();
        m_connector = std::thread(std::move(task));
    }

    void connect()
    {
        QDBusConnection bus = QDBusConnection::sessionBus();
        const std::lock_guard guard(m_lock);
        m_connected = bus.isConnected();
        if (m_connected && m_latest)
            bus.send(*m_latest);
        m_latest.reset();
    }

    std::mutex m_lock;
    bool m_started = false;
    bool m_connected = false;
    std::optional<QDBusMessage> m_latest;
    std::future<void> m_done;
    std::thread m_connector;
};

/// The signal that docks and panels listen to; the object path only has to be unique in the program.
QDBusMessage updateSignal(bool visible, int percent)
{
    QDBusMessage message = QDBusMessage::createSignal(QStringLiteral("/com/canonical/unity/launcherentry/1"),
                                                      QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                                      QStringLiteral("Update"));
    const QVariantMap properties{{QStringLiteral("progress"), percent / 100.0},
                                 {QStringLiteral("progress-visible"), visible}};
    message << QStringLiteral("application://") + QString::fromUtf8(vars::kDesktopFileName) << properties;
    return message;
}

} // namespace

class TaskbarProgress::Private
{
public:
    Private()
        : m_bus(hasSessionBus() ? std::make_shared<SessionBus>() : nullptr)
    {
    }

    ~Private()
    {
        setVisible(false);
        if (m_bus)
            m_bus->leave();
    }

    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    void setVisible(bool visible)
    {
        // What was never shown needs no word that it is hidden, so that a start does not wake the bus.
        if (std::exchange(m_visible, visible) != visible)
            send();
    }

    void setValue(int percent)
    {
        const int value = std::clamp(percent, 0, 100);
        if (std::exchange(m_percent, value) != value && m_visible)
            send();
    }

private:
    void send()
    {
        if (m_bus)
            m_bus->send(updateSignal(m_visible, m_percent));
    }

    std::shared_ptr<SessionBus> m_bus;
    bool m_visible = false;
    int m_percent = 0;
};

// The launcher entry is named by the desktop file, not by a window.
TaskbarProgress::TaskbarProgress(quintptr /*windowId*/)
    : m_private(std::make_unique<Private>())
{
}

TaskbarProgress::~TaskbarProgress() = default;

void TaskbarProgress::show()
{
    m_private->setVisible(true);
}

void TaskbarProgress::hide()
{
    m_private->setVisible(false);
}

void TaskbarProgress::setValue(int percent)
{
    m_private->setValue(percent);
}

} // namespace quillon::platform
