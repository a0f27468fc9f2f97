#pragma once

#include "app/CMainWindow.h"
#include "support/QtWait.h"

#include <QDialog>
#include <QStringList>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <ostream>
#include <string>

/// Lets a failed expectation show a text instead of its bytes.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

namespace quillon::tests {

/// The program's window with somebody at the keyboard and the mouse. Widgets and actions go by their object
/// names.
class MainWindowDriver
{
public:
    /// Shows a window that was started with `arguments`, and waits until it has the keyboard.
    explicit MainWindowDriver(const QStringList& arguments = {});

    // What the user does
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text); ///< in place of the edit field's text
    void click(const char* button);
    void clickToolButton(const char* action);
    void chooseFromMenu(const char* action); ///< where a menu has it

    /// Moves files, or a text where there are none, to `widget`. True where they were taken and the source
    /// was told of a copy: at a move it might delete them.
    bool drop(const char* widget, const QList<QUrl>& urls,
              Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction);

    void selectAlgorithm(const QString& row); ///< in the combo box

    /// Presses F5 and waits for the end of the run.
    [[nodiscard]] bool run();
    [[nodiscard]] std::string resultOfRun() { return run() ? result() : "The run does not end"; }

    /// Waits until `count` runs have ended since the window was made.
    [[nodiscard]] bool waitForEnd(int count = 1);

    // What the user sees
    [[nodiscard]] QString input() const { return shown("lineEditInput"); }
    [[nodiscard]] QString details() const { return shown("textEditInputFileDetails"); }
    [[nodiscard]] QString algorithm() const { return shown("comboBoxSelectAlg"); }
    [[nodiscard]] QString caption() const { return shown("labelResultCaption"); }
    [[nodiscard]] QString hex() const { return shown("plainTextEditHashHex"); }

    /// The colour of the status line, its text and, in brackets, where the bar stands; empty where it is
    /// hidden.
    [[nodiscard]] std::string status() const;

    /// What there is of status, digest in both forms and names of disabled widgets and actions, line by line.
    [[nodiscard]] std::string result() const;

    [[nodiscard]] int runsEnded() const { return m_runsEnded; }

    template <class Object>
    [[nodiscard]] Object& child(const char* name) const
    {
        auto* const found = m_window.findChild<Object*>(name);
        if (found == nullptr)
            qFatal("The window has no %s", name);
        return *found;
    }

    [[nodiscard]] CMainWindow& window() { return m_window; }

private:
    void activate();
    [[nodiscard]] QString shown(const char* widget) const;

    int m_runsEnded = 0;
    CMainWindow m_window;
};

/// What the result is then.
[[nodiscard]] std::string errorResult(const std::string& text);
[[nodiscard]] std::string sha256Result(
    const std::string& bytes,
    const std::string& status = "#005f00 Hash was calculated successfully"); ///< by Qt's implementation

/// Does `answer` to the next modal dialog, as soon as it is there and has the keyboard.
class DialogAnswer
{
public:
    explicit DialogAnswer(std::function<void(QDialog&)> answer);

    /// Whether a dialog came.
    [[nodiscard]] bool isGiven() const { return m_isGiven; }

private:
    bool m_isGiven = false;
    QTimer m_timer;
};

} // namespace quillon::tests
