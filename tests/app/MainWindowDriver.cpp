#include "app/MainWindowDriver.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>
#include <QToolBar>
#include <QWindow>

namespace quillon::tests {

std::ostream& operator<<(std::ostream& stream, const Status& status)
{
    return stream << '"' << status.text.toStdString() << "\" in " << status.colour.name().toStdString()
                  << (status.isBarShown ? " over the bar" : " without the bar");
}

Status errorStatus(const QString& text)
{
    return {text, QColor(255, 0, 0), false};
}

Status successStatus()
{
    return {"Hash was calculated successfully", QColor(0, 95, 0), false};
}

Status noStatus()
{
    return {};
}

void typeInto(QWidget& widget, const QString& text)
{
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(character), Qt::NoModifier);
}

/// Counts the ends of runs: at an end, and only there, the edit field becomes enabled.
class MainWindowDriver::EndWatch final : public QObject
{
public:
    explicit EndWatch(QWidget& edit)
        : m_edit(edit)
    {
        edit.installEventFilter(this);
    }

    [[nodiscard]] int count() const { return m_count; }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        m_count += event->type() == QEvent::EnabledChange && m_edit.isEnabled() ? 1 : 0;
        return false;
    }

private:
    QWidget& m_edit;
    int m_count = 0;
};

MainWindowDriver::MainWindowDriver(const QStringList& arguments)
    : m_window(std::make_unique<CMainWindow>())
{
    m_ends = std::make_unique<EndWatch>(child<QLineEdit>("lineEditInput"));
    m_window->setCommandLine(arguments);
    m_window->show();
    activate();
}

MainWindowDriver::~MainWindowDriver() = default;

void MainWindowDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    activate();
    // To the window, as the system sends it: what it means is for Qt to find out.
    QTest::keyClick(m_window->windowHandle(), key, modifiers);
}

void MainWindowDriver::type(const QString& text)
{
    auto& edit = child<QLineEdit>("lineEditInput");
    QTest::mouseClick(&edit, Qt::LeftButton);
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Delete);
    typeInto(edit, text);
}

void MainWindowDriver::click(const char* button)
{
    QTest::mouseClick(&child<QPushButton>(button), Qt::LeftButton);
}

void MainWindowDriver::clickToolButton(const char* action)
{
    auto& bar = child<QToolBar>("toolBar");
    QTest::mouseClick(bar.widgetForAction(&child<QAction>(action)), Qt::LeftButton);
}

void MainWindowDriver::chooseFromMenu(const char* menu, const char* action)
{
    auto& bar = child<QMenuBar>("menuBar");
    auto& popup = child<QMenu>(menu);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(popup.menuAction()).center());
    QTest::mouseClick(&popup, Qt::LeftButton, {}, popup.actionGeometry(&child<QAction>(action)).center());
}

bool MainWindowDriver::drop(const char* widget, const QList<QUrl>& urls)
{
    auto& target = child<QWidget>(widget);
    QMimeData data;
    data.setUrls(urls);
    data.setText("text of the drop");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    return true;
}

void MainWindowDriver::selectAlgorithm(const QString& row)
{
    auto& combo = child<QComboBox>("comboBoxSelectAlg");
    QTest::keyClick(&combo, Qt::Key_Home);
    for (int tries = combo.count(); tries > 0 && combo.currentText() != row; --tries)
        QTest::keyClick(&combo, Qt::Key_Down);
}

// Without a window manager nobody gives the keyboard back when a dialog or a menu has gone.
void MainWindowDriver::activate()
{
    if (!m_window->isActiveWindow())
        m_window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("The window did not become active");
}

bool MainWindowDriver::run()
{
    const int former = runsEnded();
    return start() && waitForEnd(former + 1);
}

bool MainWindowDriver::start()
{
    // The thread of a run may still be on its way out when the run's end is told, and a start is refused so
    // long.
    return waitFor([this] {
        press(Qt::Key_F5);
        return status().text != "Hash calculation already running.";
    });
}

bool MainWindowDriver::waitForStart()
{
    return waitFor([this] { return !child<QLineEdit>("lineEditInput").isEnabled(); });
}

bool MainWindowDriver::waitForEnd(int count)
{
    return waitFor([this, count] { return runsEnded() >= count; });
}

Status MainWindowDriver::status() const
{
    const auto& frame = child<QWidget>("CProgressBarFrame");
    const auto& line = child<QLineEdit>("lineEditProgressBar");
    if (!frame.isVisible())
        return {};
    return {line.text(), line.palette().color(QPalette::Text),
            child<QProgressBar>("progressBar").isVisible()};
}

QString MainWindowDriver::input() const
{
    return child<QLineEdit>("lineEditInput").text();
}

QString MainWindowDriver::details() const
{
    return child<QTextEdit>("textEditInputFileDetails").toPlainText();
}

QString MainWindowDriver::caption() const
{
    return child<QLabel>("labelResultCaption").text();
}

QString MainWindowDriver::hex() const
{
    return child<QPlainTextEdit>("plainTextEditHashHex").toPlainText();
}

QString MainWindowDriver::base64() const
{
    return child<QPlainTextEdit>("plainTextEditHashBase64").toPlainText();
}

QStringList MainWindowDriver::disabled() const
{
    QStringList names;
    for (const QObject* object : m_window->findChildren<QObject*>()) {
        const QVariant enabled = object->property("enabled");
        if (enabled.isValid() && !enabled.toBool() && !object->objectName().isEmpty())
            names += object->objectName();
    }
    names.sort();
    return names;
}

int MainWindowDriver::runsEnded() const
{
    return m_ends->count();
}

DialogAnswer::DialogAnswer(std::function<void(QDialog&)> answer)
{
    constexpr int kLookAgainMs = 5;
    QObject::connect(&m_timer, &QTimer::timeout, [this, answer = std::move(answer), given = m_isGiven] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isActiveWindow())
            return;
        m_timer.stop();
        *given = true;
        answer(*dialog);
    });
    m_timer.start(kLookAgainMs);
}

} // namespace quillon::tests
