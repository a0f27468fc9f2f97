#include "ui/CExpectedEdit.h"

CExpectedEdit::CExpectedEdit(QWidget* parent)
    : QPlainTextEdit(parent)
{
    connect(this, &QPlainTextEdit::textChanged, this, &CExpectedEdit::onUiTextChanged);
}

void CExpectedEdit::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        answerFilesDrag(*event);
    else
        QPlainTextEdit::dragEnterEvent(event);
}

void CExpectedEdit::dragMoveEvent(QDragMoveEvent* event)
{
    if (event->mimeData()->hasUrls())
        answerFilesDrag(*event);
    else
        QPlainTextEdit::dragMoveEvent(event);
}

void CExpectedEdit::dropEvent(QDropEvent* event)
{
    if (!event->mimeData()->hasUrls()) {
        QPlainTextEdit::dropEvent(event);
        return;
    }
    answerFilesDrag(*event);
    if (event->isAccepted())
        insertFromMimeData(event->mimeData());
}

bool CExpectedEdit::canInsertFromMimeData(const QMimeData* source) const
{
    return source->hasUrls() || source->hasText();
}

void CExpectedEdit::insertFromMimeData(const QMimeData* source)
{
    const QList<QUrl> urls = source->urls();
    if (!urls.isEmpty() && urls.front().isLocalFile())
        emit fileGiven(urls.front().toLocalFile());
    else if (source->hasText())
        insertPlainText(source->text().left(kMostCharacters));
}

void CExpectedEdit::onUiTextChanged()
{
    const QString text = toPlainText();
    if (text.size() > kMostCharacters)
        setPlainText(text.left(kMostCharacters));
}
