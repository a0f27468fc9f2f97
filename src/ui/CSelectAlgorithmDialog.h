#pragma once

#include "crypto/HashCatalogue.h"
#include "sync/SafeData.h"
#include "ui/AlgorithmList.h"

#include <QDialog>

#include <memory>

class QListWidgetItem;
class Ui_CSelectAlgorithmDialog;

/// Lets the user select a hash algorithm and say whether it is to be the default. It writes no setting: the
/// caller reads the choice after `exec` has answered QDialog::Accepted.
class CSelectAlgorithmDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit CSelectAlgorithmDialog(QWidget* parent = nullptr);
    ~CSelectAlgorithmDialog() override;

    /// Where the algorithms come from; set it before `exec`. Ownership stays with the caller, and the
    /// provider must outlive the dialog.
    void setHashAlgProvider(const thisapp::IHashAlgProvider* provider) { m_provider = provider; }

    /// The algorithm on which the dialog opens, the built-in default until it is set; set it before `exec`.
    void setCurrentAlgorithm(const thisapp::SHashAlgId& id) { m_current = id; }

    /// The algorithm that was accepted; zero where no row was selected.
    [[nodiscard]] thisapp::SHashAlgId getCurrentAlgorithm() const { return m_current; }

    /// Whether the accepted algorithm is to be the default.
    [[nodiscard]] bool isSetAsDefault() const { return m_asDefault; }

public slots:
    void onUiOk();
    void onUiCancel();
    void onUiCurrentAlgChanged(QListWidgetItem* current, QListWidgetItem* previous);

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QString algorithmName(const QListWidgetItem* item) const;

    std::unique_ptr<Ui_CSelectAlgorithmDialog> m_ui;
    quillon::sync::SafeValue<bool> m_firstShow{true};
    const thisapp::IHashAlgProvider* m_provider = nullptr;
    thisapp::SHashAlgId m_current = quillon::crypto::kDefaultHashAlg;
    bool m_asDefault = false;
};
