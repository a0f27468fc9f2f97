#include "platform/qt/TaskbarProgress.h"

#include "platform/qt/unix/SessionBusProbe.h"
#include "vars/Product.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <atomic>
#include <chrono>
#include <future>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace quillon::platform {
namespace {

// How long a bus may take for its first answer, and how long the end of the program waits for one that has
// not answered yet.
constexpr std::chrono::milliseconds kPatience{2000};
constexpr std::chrono::milliseconds kLongestGoodbye{500};

/// The way to the session bus. Connecting can take as long as the bus likes, so a thread of its own does it,
/// at the first message; until then only the latest message is kept, as it makes the former ones void. Shared
/// with that thread, which a slow bus may keep beyond the owner's life.
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
        m_isLeft = m_done.wait_for(kLongestGoodbye) != std::future_status::ready;
        if (m_isLeft)
            m_connector.detach();
        else
            m_connector.join();
        // The future keeps the task alive, and the task keeps this object alive: without this line neither
        // would ever be freed.
        m_done = {};
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
        if (!answersSessionBus(kPatience) || m_isLeft)
            return;
        QDBusConnection bus = QDBusConnection::sessionBus();
        const std::lock_guard guard(m_lock);
        m_connected = bus.isConnected();
        if (m_connected && m_latest)
            bus.send(*m_latest);
        m_latest.reset();
    }

    std::mutex m_lock;
    std::atomic<bool> m_isLeft{false};
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
    message << QStringLiteral("application://%1.desktop").arg(QLatin1String(vars::kDesktopId)) << properties;
    return message;
}

} // namespace

class TaskbarProgress::Button
{
public:
    Button() = default;
    Button(const Button&) = delete;
    Button& operator=(const Button&) = delete;
    ~Button() { m_bus->leave(); }

    void tell(bool isShown, int percent) { m_bus->send(updateSignal(isShown, percent)); }

private:
    std::shared_ptr<SessionBus> m_bus = std::make_shared<SessionBus>();
};

// The launcher entry is named by the desktop file, not by a window.
TaskbarProgress::TaskbarProgress(quintptr /*windowId*/)
    : m_button(std::make_unique<Button>())
{
}

TaskbarProgress::~TaskbarProgress()
{
    hide();
}

void TaskbarProgress::tell()
{
    m_button->tell(m_isShown, m_percent);
}

} // namespace quillon::platform
