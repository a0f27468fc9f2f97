#pragma once

#include "crypto/HashCatalogue.h"
#include "ui/AlgorithmList.h"

#include <QFrame>

#include <memory>

class QListWidget;
class Ui_CSelectAlgFrame;

/// The tool bar's combo box of hash algorithms.
class CSelectAlgFrame final : public QFrame
{
    Q_OBJECT

public:
    explicit CSelectAlgFrame(QWidget* parent = nullptr);
    ~CSelectAlgFrame() override;

    /// Where the algorithms come from. Ownership stays with the caller; the provider is used by
    /// `reloadAlgorithms` only.
    void setHashAlgProvider(const thisapp::IHashAlgProvider* provider) { m_provider = provider; }

    /// Fills the combo box anew; its first row becomes the current one.
    void reloadAlgorithms();

    /// Sets the frame's own texts again after a change of language. The algorithms are not translated.
    void retranslateFrame();

    /// The current row's id; zero where there is no row.
    [[nodiscard]] thisapp::SHashAlgId getCurrentAlgorithm() const;

    /// Makes the first row with this id the current one. An id that no row has changes nothing.
    void setCurrentAlgorithm(const thisapp::SHashAlgId& id);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void orient();

    std::unique_ptr<Ui_CSelectAlgFrame> m_ui;
    const thisapp::IHashAlgProvider* m_provider = nullptr;
    QListWidget* m_listView = nullptr;
    QString m_sheet; ///< of the form, for a layout from left to right
};
