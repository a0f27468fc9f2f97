#pragma once

#include "sync/SafeData.h"

#include <QDialog>

#include <memory>

class Ui_CAboutDialog;

/// Tells the program's name, version and addresses.
class CAboutDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit CAboutDialog(QWidget* parent = nullptr);
    ~CAboutDialog() override;

public slots:
    void onUiButtonOkPressed();

    /// Opens the mail program; the link's own address is not used.
    void onUiSupportEmailClicked(const QString& strUrl);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void fill();

    std::unique_ptr<Ui_CAboutDialog> m_ui;
    quillon::sync::SafeValue<bool> m_firstShow{true};
};
