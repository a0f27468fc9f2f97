#pragma once

#include "app/CMainWindow.h"
#include "support/QtWait.h"

#include <QColor>
#include <QDialog>
#include <QStringList>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <memory>
#include <ostream>

namespace quillon::tests {

/// The status line as the user sees it.
struct Status
{
    QString text;
    QColor colour;
    bool isBarShown = false;

    friend bool operator==(const Status&, const Status&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const Status& status);
};

[[nodiscard]] Status errorStatus(const QString& text);
[[nodiscard]] Status successStatus();
[[nodiscard]] Status noStatus(); ///< the line is hidden

/// The program's window with somebody at the keyboard and the mouse.
class MainWindowDriver
{
public:
    /// Shows a window that was started with `arguments`, and waits until it has the keyboard.
    explicit MainWindowDriver(const QStringList& arguments = {});

    /// Closes the window as the program's end does, waiting for a run that goes on.
    ~MainWindowDriver();
    MainWindowDriver(const MainWindowDriver&) = delete;
    MainWindowDriver& operator=(const MainWindowDriver&) = delete;

    // What the user does
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);                            ///< in place of the edit field's text
    void click(const char* button);                            ///< a button, by its object name
    void clickToolButton(const char* action);                  ///< by the action's object name
    void chooseFromMenu(const char* menu, const char* action); ///< by both object names
    bool drop(const char* widget, const QList<QUrl>& urls);    ///< whether the widget took it
    void selectAlgorithm(const QString& row);                  ///< in the combo box

    /// Starts a run with F5, where one has just ended as soon as the window takes it.
    [[nodiscard]] bool start();

    /// Presses F5 and waits for the end of the run.
    [[nodiscard]] bool run();
    [[nodiscard]] bool waitForStart();

    /// Waits until `count` runs have ended since the window was made.
    [[nodiscard]] bool waitForEnd(int count = 1);

    // What the user sees
    [[nodiscard]] Status status() const;
    [[nodiscard]] QString input() const;
    [[nodiscard]] QString details() const;
    [[nodiscard]] QString caption() const;
    [[nodiscard]] QString hex() const;
    [[nodiscard]] QString base64() const;
    [[nodiscard]] QStringList disabled() const; ///< the names of the disabled widgets and actions, sorted
    [[nodiscard]] int runsEnded() const;

    template <class Object>
    [[nodiscard]] Object& child(const char* name) const
    {
        auto* const found = m_window->findChild<Object*>(name);
        if (found == nullptr)
            qFatal("The window has no %s", name);
        return *found;
    }

    [[nodiscard]] CMainWindow& window() { return *m_window; }

private:
    class EndWatch;

    void activate();

    std::unique_ptr<CMainWindow> m_window;
    std::unique_ptr<EndWatch> m_ends;
};

/// Does `answer` to the next modal dialog, as soon as it is there and has the keyboard.
class DialogAnswer
{
public:
    explicit DialogAnswer(std::function<void(QDialog&)> answer);

    /// Whether a dialog came.
    [[nodiscard]] bool isGiven() const { return *m_isGiven; }

private:
    std::shared_ptr<bool> m_isGiven = std::make_shared<bool>(false);
    QTimer m_timer;
};

/// Enters a text into `widget`, character by character.
void typeInto(QWidget& widget, const QString& text);

} // namespace quillon::tests
