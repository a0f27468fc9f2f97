#include "platform/qt/TaskbarProgress.h"

#include <windows.h>

#include <shobjidl.h>

#include <algorithm>
#include <memory>

namespace quillon::platform {
namespace {

constexpr ULONGLONG kWholePercent = 100;

struct ComReleaser
{
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};

using TaskbarList = std::unique_ptr<ITaskbarList3, ComReleaser>;

/// COM is up on this thread: Qt's platform plug-in starts it for the clipboard and for drag and drop. Empty
/// where the desktop has no taskbar of this kind.
TaskbarList createTaskbarList()
{
    void* object = nullptr;
    if (FAILED(
            CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3, &object)))
        return nullptr;
    TaskbarList list(static_cast<ITaskbarList3*>(object));
    return SUCCEEDED(list->HrInit()) ? std::move(list) : nullptr;
}

} // namespace

class TaskbarProgress::Private
{
public:
    explicit Private(quintptr windowId)
        : m_window(reinterpret_cast<HWND>(windowId))
    {
    }
    ~Private() { setVisible(false); }
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    void setVisible(bool visible)
    {
        if (m_visible == visible)
            return;
        m_visible = visible;
        apply();
    }

    void setValue(int percent)
    {
        m_percent = std::clamp(percent, 0, static_cast<int>(kWholePercent));
        if (m_visible)
            apply();
    }

private:
    // The list is made at the first use, so that a start does not pay for it.
    void apply()
    {
        if (!m_asked) {
            m_asked = true;
            m_list = createTaskbarList();
        }
        if (!m_list)
            return;
        m_list->SetProgressState(m_window, m_visible ? TBPF_NORMAL : TBPF_NOPROGRESS);
        if (m_visible)
            m_list->SetProgressValue(m_window, static_cast<ULONGLONG>(m_percent), kWholePercent);
    }

    HWND m_window;
    TaskbarList m_list;
    bool m_asked = false;
    bool m_visible = false;
    int m_percent = 0;
};

TaskbarProgress::TaskbarProgress(quintptr windowId)
    : m_private(std::make_unique<Private>(windowId))
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
