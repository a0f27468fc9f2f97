#pragma once

#include "sync/SafeData.h"

#include <QDialog>

#include <memory>

class Ui_CkeyboardShortcutInfoDialog;

/// Lists the main window's keyboard shortcuts.
class CkeyboardShortcutInfoDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit CkeyboardShortcutInfoDialog(QWidget* parent = nullptr);
    ~CkeyboardShortcutInfoDialog() override;

public slots:
    void onUiButtonOkPressed();

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] static QString shortcutsHtml();

    std::unique_ptr<Ui_CkeyboardShortcutInfoDialog> m_ui;
    quillon::sync::SafeValue<bool> m_firstShow{true};
};
