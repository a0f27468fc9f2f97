#pragma once

#include <QFrame>
#include <QPalette>
#include <QString>

#include <memory>

class QColor;
class Ui_CProgressBarFrame;

/// The status line of the main window: one text in one of four colours over a thin bar with a resolution of
/// one per mille. The bar is hidden at first.
class CProgressBarFrame final : public QFrame
{
    Q_OBJECT

public:
    explicit CProgressBarFrame(QWidget* parent = nullptr);
    ~CProgressBarFrame() override;

    /// Shows `text` in red.
    void showErrorText(const QString& text);

    /// Shows `text` in black.
    void showMessage(const QString& text);

    /// Shows `text` in green.
    void showSuccessText(const QString& text);

    /// Shows `text` in a dark orange, which can be read on a light ground.
    void showWarningText(const QString& text);

    /// Shows `text` in black and the bar at `percent`, truncated to the per mille. A percent outside 0 to 100
    /// leaves the bar's value as it is.
    void setProgress(const QString& text, float percent);

    /// Lets a screen reader say the text at once.
    void announce();

    /// Shows or hides the bar, not the text.
    void setProgressBarVisible(bool visible);

private:
    void showText(const QString& text, const QColor& colour);

    std::unique_ptr<Ui_CProgressBarFrame> m_ui;
    QPalette m_palette;
};
