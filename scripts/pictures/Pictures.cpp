// Usage: kestrum_pictures FOLDER FILE
//
// Takes a picture of every window and tab in every language, each as FOLDER/<locale>-<window>.png, and names
// each text that has less room than it needs. FILE is a large file to calculate. The exit status is 1 where a
// text is cut.

#include "app/CMainWindow.h"
#include "app/StartLanguage.h"
#include "i18n/StrBundleTrMgr.h"
#include "i18n_qt/MyTranslator.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"
#include "ui/CCompareDialog.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryFile>
#include <QTest>
#include <QTextEdit>
#include <QTextStream>
#include <QTimer>
#include <QToolButton>

namespace {

namespace i18n = quillon::i18n;

class Photographer
{
public:
    Photographer(QString folder, QString locale)
        : m_folder(std::move(folder))
        , m_locale(std::move(locale))
    {
    }

    /// Saves the picture of `window` and looks at each text in it.
    void take(QWidget& window, const QString& name)
    {
        QCoreApplication::processEvents();
        m_name = name;
        window.grab().save(m_folder + '/' + m_locale + '-' + name + ".png");
        for (QWidget* widget : window.findChildren<QWidget*>())
            if (widget->isVisibleTo(&window))
                inspect(*widget);
    }

    void takeMenus(const QMainWindow& window)
    {
        for (QMenu* menu : window.menuBar()->findChildren<QMenu*>()) {
            menu->popup({});
            take(*menu, menu->objectName());
            menu->close();
        }
    }

    [[nodiscard]] int faults() const { return m_faults; }

private:
    void inspect(const QWidget& widget)
    {
        if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
            const int height =
                label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
            const int width =
                label->wordWrap() ? label->minimumSizeHint().width() : label->sizeHint().width();
            expectRoom(widget, {width, height}, label->text());
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
            const bool isScroller = qobject_cast<const QTabBar*>(widget.parentWidget()) != nullptr ||
                                    widget.objectName().startsWith("qt_");
            if (isScroller && !widget.objectName().startsWith("qt_spinbox"))
                report(widget, "there is more than has room", widget.parentWidget()->objectName());
            else
                expectRoom(widget, button->sizeHint(), button->text());
        } else if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
            expectRoom(widget, {group->minimumSizeHint().width(), 0}, group->title());
        } else if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
            if (box->objectName() != "comboBoxSelectAlg")
                expectRoom(widget, {box->sizeHint().width(), 0}, box->currentText());
        } else if (const auto* details = qobject_cast<const QTextEdit*>(&widget)) {
            const qreal bottom = details->document()->size().height();
            const bool scrolls = details->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
            // What its neighbours cover is gone too.
            const int shown = details->viewport()->visibleRegion().boundingRect().bottom() + 1;
            if (!scrolls && bottom > shown)
                report(widget, QString("%1 of %2").arg(shown).arg(bottom),
                       details->toPlainText().replace('\n', ' '));
        } else if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) {
            for (int column = 0; column < table->columnCount(); ++column)
                for (int row = 0; row < table->rowCount(); ++row)
                    if (table->visualItemRect(table->item(row, column)).width() <
                        table->fontMetrics().horizontalAdvance(table->item(row, column)->text()))
                        report(widget, "cut", table->item(row, column)->text());
        }
    }

    void expectRoom(const QWidget& widget, const QSize& needed, const QString& text)
    {
        const bool isCut = needed.width() > widget.width() || needed.height() > widget.height();
        if (isCut && !text.isEmpty())
            report(widget,
                   QString("%1 x %2 of %3 x %4")
                       .arg(widget.width())
                       .arg(widget.height())
                       .arg(needed.width())
                       .arg(needed.height()),
                   text);
    }

    void report(const QWidget& widget, const QString& what, const QString& text)
    {
        ++m_faults;
        QTextStream(stdout) << m_locale << ' ' << m_name << ' ' << widget.objectName() << ": " << what << ": "
                            << text << Qt::endl;
    }

    QString m_folder;
    QString m_locale;
    QString m_name;
    int m_faults = 0;
};

template <class Use>
void inDialogOf(CMainWindow& window, const char* action, const Use& use)
{
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            timer.stop();
            use(*dialog);
            dialog->close();
        }
    });
    timer.start(1);
    window.findChild<QAction*>(action)->trigger();
}

void takeOptions(Photographer& camera, QDialog& dialog)
{
    auto& tabs = *dialog.findChild<QTabWidget*>();
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.setCurrentIndex(tab);
        camera.take(dialog, QString("options%1").arg(tab + 1));
    }
}

void takeComparison(Photographer& camera, QDialog& dialog)
{
    dialog.findChild<QPlainTextEdit*>("plainTextEditExpected")->setPlainText(QString(64, 'A'));
    camera.take(dialog, "compare-different");
    dialog.findChild<QPlainTextEdit*>("plainTextEditExpected")->setPlainText(QString(40, '1'));
    camera.take(dialog, "compare-other");
}

int takeAll(const QString& folder, const QString& locale, const QString& large)
{
    Photographer camera(folder, locale);
    QTemporaryFile small;
    if (!small.open() || small.write("abc") != 3 || !small.flush())
        qFatal("No file");
    CMainWindow window;
    window.show();
    camera.take(window, "idle");
    camera.takeMenus(window);
    auto& input = *window.findChild<QLineEdit*>("lineEditInput");
    input.setText(large);
    camera.take(window, "file");
    window.findChild<QAction*>("actionHash_Calculate")->trigger();
    const auto& status = *window.findChild<QLineEdit*>("lineEditProgressBar");
    if (!QTest::qWaitFor([&] { return status.text().count(':') + status.text().count(QChar(0xFF1A)) > 0; }))
        qFatal("The run does not begin");
    camera.take(window, "run");
    window.findChild<QAction*>("actionHash_Stop")->trigger();
    const auto& calculate = *window.findChild<QAction*>("actionHash_Calculate");
    if (!QTest::qWaitFor([&] { return calculate.isEnabled(); }))
        qFatal("The run does not stop");
    camera.take(window, "stopped");
    input.setText(small.fileName());
    window.findChild<QAction*>("actionHash_Calculate")->trigger();
    const auto& digest = *window.findChild<QPlainTextEdit*>("plainTextEditHashHex");
    if (!QTest::qWaitFor([&] { return !digest.document()->isEmpty(); }))
        qFatal("No digest comes");
    window.resize(window.minimumSizeHint().expandedTo({500, window.height()}));
    camera.take(window, "after");
    const auto takeAs = [&camera](const char* name) {
        return [&camera, name](QDialog& dialog) { camera.take(dialog, name); };
    };
    inDialogOf(window, "actionHash_selectAlgorithm", takeAs("algorithm"));
    inDialogOf(window, "actionHelp_About", takeAs("about"));
    inDialogOf(window, "actionTools_KeyboardShortcuts", takeAs("shortcuts"));
    inDialogOf(window, "actionTools_Options", [&](QDialog& dialog) { takeOptions(camera, dialog); });
    inDialogOf(window, "actionHash_compare", [&](QDialog& dialog) { takeComparison(camera, dialog); });
    return camera.faults();
}

} // namespace

int main(int argc, char* argv[])
{
    MyTranslator translator;
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3)
        qFatal("usage: kestrum_pictures FOLDER FILE");
    constexpr int kPoints = 9;
    QApplication::setFont(QFont("DejaVu Sans", kPoints)); // as wide as fonts of desktops get
    QCoreApplication::installTranslator(&translator);
    loadStartLanguage();
    std::vector<i18n::internal::Translation<char>> languages;
    static_cast<void>(i18n::getStrBundleMgr().getTranslations(languages));
    int faults = 0;
    for (const auto& language : languages) {
        i18n::internal::Locale<char> locale;
        i18n::findLocale(locale, language.language, language.country);
        CAppSettings store;
        thisapp::settings::LocaleId.write(store, locale.id);
        loadStartLanguage();
        faults += takeAll(arguments[1], QString::fromStdString(locale.localeName), arguments[2]);
    }
    return languages.size() < 2 || faults > 0 ? 1 : 0;
}
