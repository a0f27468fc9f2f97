#include "platform/qt/TaskbarProgress.h"

#include <windows.h>

#include <shobjidl.h>

#include <memory>
#include <utility>

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

class TaskbarProgress::Button
{
public:
    explicit Button(quintptr windowId)
        : m_window(reinterpret_cast<HWND>(windowId))
    {
    }

    void tell(bool isShown, int percent)
    {
        // The list is made at the first use, so that a start does not pay for it.
        if (!std::exchange(m_isAsked, true))
            m_list = createTaskbarList();
        if (!m_list)
            return;
        m_list->SetProgressState(m_window, isShown ? TBPF_NORMAL : TBPF_NOPROGRESS);
        if (isShown)
            m_list->SetProgressValue(m_window, static_cast<ULONGLONG>(percent), kWholePercent);
    }

private:
    HWND m_window;
    TaskbarList m_list;
    bool m_isAsked = false;
};

TaskbarProgress::TaskbarProgress(quintptr windowId)
    : m_button(std::make_unique<Button>(windowId))
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
