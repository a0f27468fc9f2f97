#pragma once

#include <QtGlobal>

#include <memory>

namespace quillon::platform {

/// The progress that the desktop shows on the program's taskbar or launcher button. Belongs to the user
/// interface thread. Silent where the desktop has no such thing; never blocks on the desktop.
class TaskbarProgress
{
public:
    /// `windowId` is the native handle of the top-level window. Nothing is shown yet, the value is 0.
    explicit TaskbarProgress(quintptr windowId);
    ~TaskbarProgress();
    TaskbarProgress(const TaskbarProgress&) = delete;
    TaskbarProgress& operator=(const TaskbarProgress&) = delete;

    void show();
    void hide();

    /// `percent` from 0 to 100; a value outside is brought to the nearer end.
    void setValue(int percent);

private:
    class Button;

    void tell(); ///< the button how things stand

    std::unique_ptr<Button> m_button; ///< the system's part
    bool m_isShown = false;
    int m_percent = 0;
};

} // namespace quillon::platform
