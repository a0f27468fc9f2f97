#include "platform/qt/TaskbarProgress.h"

#include <algorithm>
#include <utility>

namespace quillon::platform {

// What was never shown needs no word that it is hidden, so that a start does not wake the desktop.

void TaskbarProgress::show()
{
    if (!std::exchange(m_isShown, true))
        tell();
}

void TaskbarProgress::hide()
{
    if (std::exchange(m_isShown, false))
        tell();
}

void TaskbarProgress::setValue(int percent)
{
    const int value = std::clamp(percent, 0, 100);
    if (std::exchange(m_percent, value) != value && m_isShown)
        tell();
}

} // namespace quillon::platform
