#include "app/MainWindowDriver.h"

#include "app/CMsgDispatcher.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QCryptographicHash>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QToolBar>
#include <QWindow>

namespace quillon::tests {

MainWindowDriver::MainWindowDriver(const QStringList& arguments)
{
    QObject::connect(m_window.findChild<CMsgDispatcher*>(), &CMsgDispatcher::notifyHashCalculationFinished,
                     &m_window, [this] { ++m_runsEnded; });
    m_window.setCommandLine(arguments);
    m_window.show();
    activate();
}

void MainWindowDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    activate();
    // To the window, as the system sends it: what it means is for Qt to find out.
    QTest::keyClick(m_window.windowHandle(), key, modifiers);
}

void MainWindowDriver::type(const QString& text)
{
    auto& edit = child<QLineEdit>("lineEditInput");
    QTest::mouseClick(&edit, Qt::LeftButton);
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_unknown, text, Qt::NoModifier); // in one stroke
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

void MainWindowDriver::chooseFromMenu(const char* action)
{
    auto& bar = child<QMenuBar>("menuBar");
    auto& chosen = child<QAction>(action);
    for (QMenu* menu : bar.findChildren<QMenu*>()) {
        if (menu->actions().contains(&chosen)) {
            QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu->menuAction()).center());
            // Some versions of Qt take no click so soon behind the one that opens the menu.
            menu->setActiveAction(&chosen);
            QTest::keyClick(menu, Qt::Key_Return);
        }
    }
}

bool MainWindowDriver::drop(const char* widget, const QList<QUrl>& urls, Qt::DropActions offered)
{
    auto* target = &child<QWidget>(widget);
    if (auto* const area = qobject_cast<QAbstractScrollArea*>(target))
        target = area->viewport();
    QMimeData data;
    data.setText("file:///a");
    if (!urls.isEmpty())
        data.setUrls(urls);
    QDragEnterEvent enter(QPoint(5, 5), offered, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(target, &enter);
    QDropEvent drop(QPointF(5, 5), offered, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    if (enter.isAccepted())
        QApplication::sendEvent(target, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
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
    if (!m_window.isActiveWindow())
        m_window.activateWindow();
    if (!QTest::qWaitForWindowActive(&m_window))
        qFatal("The window did not become active");
}

bool MainWindowDriver::run()
{
    const int former = m_runsEnded;
    press(Qt::Key_F5);
    return waitForEnd(former + 1);
}

bool MainWindowDriver::waitForEnd(int count)
{
    return waitFor([this, count] { return m_runsEnded >= count; });
}

QString MainWindowDriver::shown(const char* widget) const
{
    const auto& shown = child<QWidget>(widget);
    for (const char* property : {"plainText", "currentText", "text"})
        if (shown.property(property).isValid())
            return shown.property(property).toString();
    return {};
}

std::string MainWindowDriver::status() const
{
    const auto& line = child<QLineEdit>("lineEditProgressBar");
    const auto& bar = child<QProgressBar>("progressBar");
    if (!line.isVisible())
        return {};
    const QString text = line.palette().color(QPalette::Text).name() + ' ' + line.text();
    return (bar.isVisible() ? text + QString(" [%1]").arg(bar.value()) : text).toStdString();
}

std::string MainWindowDriver::result() const
{
    QStringList lines{QString::fromStdString(status()), hex(), shown("plainTextEditHashBase64")};
    for (const QObject* object : m_window.findChildren<QObject*>())
        if (object->property("enabled").toString() == "false")
            lines += object->objectName();
    if (hex().isEmpty())
        lines.removeAll("actionHash_compare"); // without a digest
    lines.removeAll({});
    return lines.join('\n').toStdString();
}

std::string errorResult(const std::string& text)
{
    return "#ff0000 " + text;
}

std::string sha256Result(const std::string& bytes, const std::string& status)
{
    const QByteArray digest =
        QCryptographicHash::hash(QByteArray::fromStdString(bytes), QCryptographicHash::Sha256);
    return status + '\n' + digest.toHex().toUpper().toStdString() + '\n' + digest.toBase64().toStdString();
}

DialogAnswer::DialogAnswer(std::function<void(QDialog&)> answer)
{
    constexpr int kLookAgainMs = 5;
    QObject::connect(&m_timer, &QTimer::timeout, [this, answer = std::move(answer)] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isActiveWindow())
            return;
        m_timer.stop();
        m_isGiven = true;
        answer(*dialog);
    });
    m_timer.start(kLookAgainMs);
}

} // namespace quillon::tests
