// Loaded in front of a Qt program's libraries, this ends the program as soon as it has shown its window and
// has nothing left to do, so that a start can be timed as a whole process. The programs themselves know
// nothing of it.

#include <QApplication>
#include <QEventLoop>
#include <QWindow>

#include <algorithm>

namespace {

bool isShown()
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(),
                       [](const QWindow* window) { return window->isExposed(); });
}

} // namespace

// The name of QApplication::exec, as the C++ ABI spells it.
extern "C" int quitWhenShown() __asm__("_ZN12QApplication4execEv");

extern "C" int quitWhenShown()
{
    QEventLoop loop;
    while (!isShown())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    while (loop.processEvents()) {
    }
    return 0;
}
