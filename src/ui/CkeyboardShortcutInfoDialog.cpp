#include "ui/CkeyboardShortcutInfoDialog.h"

#include "ui_CkeyboardShortcutInfoDialog.h"

#include "ui/TextDirection.h"

#include <QCoreApplication>
#include <QTextBlockFormat>
#include <QTextCursor>

namespace {

struct Shortcut
{
    const char* key;
    const char* description; ///< English, to be translated
};

constexpr Shortcut kShortcuts[] = {
    {"'F5'", QT_TRANSLATE_NOOP("CkeyboardShortcutInfoDialog", "Start hash calculation")},
    {"'F8'", QT_TRANSLATE_NOOP("CkeyboardShortcutInfoDialog", "Stop hash calculation")},
    {"'Ctrl+F9' (Cmd+F9)", QT_TRANSLATE_NOOP("CkeyboardShortcutInfoDialog", "Open containing folder")},
    {"'Ctrl+O' (Cmd+O)", QT_TRANSLATE_NOOP("CkeyboardShortcutInfoDialog", "Add file to calculate hash")},
    {"'Ctrl+N' (Cmd+N)", QT_TRANSLATE_NOOP("CkeyboardShortcutInfoDialog", "Add file to calculate hash")},
};

} // namespace

CkeyboardShortcutInfoDialog::CkeyboardShortcutInfoDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui_CkeyboardShortcutInfoDialog>())
{
    m_ui->setupUi(this);
    keepButtonTextsCentred(*this);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    connect(m_ui->buttonOk, &QPushButton::clicked, this, &CkeyboardShortcutInfoDialog::onUiButtonOkPressed);
}

CkeyboardShortcutInfoDialog::~CkeyboardShortcutInfoDialog() = default;

void CkeyboardShortcutInfoDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_firstShow.exchange(false))
        return;
    m_ui->textEditDetails->setText(shortcutsHtml());
    // A paragraph would take its direction from its first letter, be it that of a key.
    QTextCursor everything(m_ui->textEditDetails->document());
    everything.select(QTextCursor::Document);
    QTextBlockFormat format;
    format.setLayoutDirection(layoutDirection());
    everything.mergeBlockFormat(format);
}

QString CkeyboardShortcutInfoDialog::shortcutsHtml()
{
    QString html =
        QStringLiteral("<html><body>") +
        tr("This is a list of keyboard shortcuts in %1.").arg(QCoreApplication::applicationName()) +
        QStringLiteral("<br/><br/>");
    for (const Shortcut& shortcut : kShortcuts) {
        html += QStringLiteral("<b>") + isolated(QString::fromLatin1(shortcut.key)) +
                QStringLiteral("</b> - ") + tr(shortcut.description) + QStringLiteral("<br/>");
    }
    return html + QStringLiteral("</body></html>");
}

void CkeyboardShortcutInfoDialog::onUiButtonOkPressed()
{
    accept();
}
