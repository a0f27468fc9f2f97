#pragma once

#include "ui/FilesDropTarget.h"

#include <QPlainTextEdit>

/// A field for expected digests. It takes texts as any other does; a file that is dropped or pasted is told
/// of instead, so that its contents can be read. It holds no more than 64 KiB.
class CExpectedEdit final : public QPlainTextEdit
{
    Q_OBJECT

public:
    static constexpr int kMostCharacters = 64 * 1024;

    explicit CExpectedEdit(QWidget* parent = nullptr);

signals:
    /// `path` is the local name of the first file.
    void fileGiven(const QString& path);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private slots:
    void onUiTextChanged();
};
