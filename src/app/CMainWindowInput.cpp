#include "ui_CMainWindow.h"

#include "app/CMainWindow.h"
#include "app/CommandLine.h"
#include "platform/qt/UserPlaces.h"
#include "ui/CProgressBarFrame.h"
#include "ui/FileChoice.h"
#include "ui/FileDetails.h"
#include "ui/TextDirection.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QTextBlock>
#include <QTextEdit>
#include <QUrl>
#include <QtMath>

#include <algorithm>

namespace {

/// Lets no line of `panel` be cut: the letters of a language can come from a font whose lines are higher than
/// those of the application's font.
void makeRoomForLines(QTextEdit& panel)
{
    const QTextDocument& text = *panel.document();
    qreal height = 2 * text.documentMargin();
    if (!text.size().isEmpty()) // which lays it out
        for (QTextBlock block = text.begin(); block.isValid(); block = block.next())
            height += block.layout()->lineAt(0).height();
    panel.setMinimumHeight(std::max(panel.minimumHeight(), qCeil(height)));
}

} // namespace

void CMainWindow::onFilesDropped(std::int32_t id, const QList<QUrl>& urls)
{
    if ((id != kDropTargetFrame && id != kDropTargetEdit) || urls.isEmpty())
        return;
    m_ui->lineEditInput->setText(QFileInfo(urls.front().toLocalFile()).absoluteFilePath());
    onUiInputFileNameChanged();
}

void CMainWindow::onUiInputFileNameChanged()
{
    nameDigestFile({});
    updateInputFileDetails();
    if (isInputFileChanged())
        dropFormerResult();
}

void CMainWindow::onUiSetInputFile()
{
    const QString file = askForInputFile(tr("Add file to calculate hash"));
    if (file.isEmpty())
        return;
    m_ui->lineEditInput->setText(file);
    if (isInputFileChanged())
        dropFormerResult();
}

void CMainWindow::onUiOpenInputDir()
{
    const QString name = inputFileName();
    if (name.isEmpty())
        return;
    const QString folder = QFileInfo(name).absolutePath();
    if (QDir(folder).exists())
        QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

QString CMainWindow::inputFileName() const
{
    return thisapp::fileNameFrom(m_ui->lineEditInput->text());
}

bool CMainWindow::isInputFileChanged() const
{
    const QString fileName = QString::fromStdString(m_hashData.get().fileName);
    return fileName.isEmpty() || fileName != inputFileName();
}

QString CMainWindow::askForInputFile(const QString& title)
{
    return chooseFile(this, title, tr("All files") + quillon::platform::allFilesPattern());
}

/// The digest and the status on screen belong to another file than the one in the edit field.
void CMainWindow::dropFormerResult()
{
    resetStatus(false);
    clearHashResults();
    updateResultCaption();
}

void CMainWindow::updateInputFileDetails()
{
    const QString path = inputFileName();
    QTextEdit& panel = *m_ui->textEditInputFileDetails;
    if (path.isEmpty()) {
        panel.setPlainText(QString());
        return;
    }
    panel.document()->setDefaultFont(panel.font());
    if (QFileInfo::exists(path)) {
        panel.setTextColor(Qt::black);
        panel.setPlainText(getFileDetailsText(path));
        makeRoomForLines(panel);
    } else {
        panel.setPlainText(tr("File not found"));
        panel.setTextColor(Qt::red);
    }
}

/// Lets caption and digest say of which file they are; an empty `path` takes it back.
void CMainWindow::nameDigestFile(const QString& path)
{
    const auto kPlain = QStringLiteral("<span style=\"white-space: pre\">%1</span>"); // no HTML by its looks
    for (QWidget* widget : std::initializer_list<QWidget*>{
             m_ui->labelResultCaption, m_ui->plainTextEditHashHex, m_ui->plainTextEditHashBase64}) {
        widget->setToolTip(path.isEmpty() ? path : kPlain.arg(isolated(path.toHtmlEscaped())));
        widget->setAccessibleDescription(path);
    }
}
