#pragma once

#include "compare/Comparison.h"
#include "err/ResultCode.h"

#include <QDialog>
#include <QStyle>

#include <cstdint>
#include <memory>

class Ui_CCompareDialog;

/// Compares a digest that was calculated with one that the user has from elsewhere, and says in words what
/// comes of it, anew at each change. A modal dialog; made for one use.
class CCompareDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `mayCalculate` says whether the same file can be calculated anew.
    CCompareDialog(const quillon::compare::CalculatedValue& calculated, bool mayCalculate,
                   QWidget* parent = nullptr);
    ~CCompareDialog() override;

    /// Fills the field for the expected digest.
    void setExpectedText(const QString& text);
    [[nodiscard]] QString expectedText() const;

    /// Fills the field with the text of the clipboard, where that belongs to another program and holds
    /// exactly one digest.
    void takeClipboard();

    /// The number of the algorithm with which the user wants the file calculated; 0 for none.
    [[nodiscard]] std::uint32_t wantedAlgorithm() const { return m_wantedAlgorithm; }

private slots:
    void onUiTextChanged();
    void onUiFromFile();
    void onUiFileGiven(const QString& path);
    void onUiCalculate();

private:
    void orientTexts();
    void showAnswer(const quillon::compare::Comparison& comparison);
    void showSentence(QStyle::StandardPixmap icon, const QString& sentence);
    void offerCalculation(const std::vector<std::uint32_t>& algorithms);
    void showDifference(const std::string& expected);
    [[nodiscard]] QStyle::StandardPixmap iconFor(quillon::compare::Answer answer) const;
    [[nodiscard]] QString sentenceFor(const quillon::compare::Comparison& comparison) const;
    [[nodiscard]] QString remarksFor(const quillon::compare::Comparison& comparison) const;
    [[nodiscard]] QString algorithmNames(const quillon::compare::Comparison& comparison) const;

    std::unique_ptr<Ui_CCompareDialog> m_ui;
    quillon::compare::CalculatedValue m_calculated;
    bool m_mayCalculate;
    std::uint32_t m_offeredAlgorithm = 0;
    std::uint32_t m_wantedAlgorithm = 0;
};
