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
#include <QTextFrame>
#include <QUrl>
#include <QtMath>

#include <algorithm>

namespace {

constexpr int kDetailsLines = 6;
constexpr int kDetailsTopMargin = 3;

/// Of the lines of `text`: the letters of a language can come from a font with higher lines than the first
/// one.
qreal heightOfLines(const QTextDocument& text)
{
    qreal height = 0;
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next())
        if (block.layout()->lineCount() > 0) // none before the text is laid out
            height += block.layout()->lineAt(0).height();
    return height;
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
        makeRoomForDetails();
    } else {
        panel.setPlainText(tr("File not found"));
        panel.setTextColor(Qt::red);
    }
}

/// Lets no line of the details be cut.
void CMainWindow::makeRoomForDetails()
{
    QTextEdit& panel = *m_ui->textEditInputFileDetails;
    QTextFrame& text = *panel.document()->rootFrame();
    QTextFrameFormat format = text.frameFormat();
    format.setTopMargin(kDetailsTopMargin);
    format.setBottomMargin(0);
    text.setFrameFormat(format);
    // A text field lets no line reach into the next one, even where the font would.
    const QFontMetrics metrics(font());
    const int lines = kDetailsLines * std::max(metrics.lineSpacing(), metrics.height());
    const int height = kDetailsTopMargin + std::max(lines, qCeil(heightOfLines(*panel.document())));
    panel.setMinimumHeight(std::max(panel.minimumHeight(), height));
    const int above =
        m_ui->frameInputFileCaption->minimumHeight() + m_ui->buttonDefineInputFile->minimumHeight();
    QWidget& frame = *m_ui->frameInputFile;
    frame.setMinimumHeight(std::max(frame.minimumHeight(), above + panel.minimumHeight()));
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
