#include "ui/CProgressBarFrame.h"

#include "ui_CProgressBarFrame.h"

#include <QAccessible>
#include <QBrush>
#include <QColor>

namespace {

constexpr int kBarMaximumPerMille = 1000;

} // namespace

CProgressBarFrame::CProgressBarFrame(QWidget* parent)
    : QFrame(parent)
    , m_ui(std::make_unique<Ui_CProgressBarFrame>())
{
    m_ui->setupUi(this);
    m_ui->progressBar->setRange(0, kBarMaximumPerMille);
    m_ui->progressBar->hide();
}

CProgressBarFrame::~CProgressBarFrame() = default;

void CProgressBarFrame::showErrorText(const QString& text)
{
    showText(text, QColor(255, 0, 0));
}

void CProgressBarFrame::showMessage(const QString& text)
{
    showText(text, QColor(0, 0, 0));
}

void CProgressBarFrame::showSuccessText(const QString& text)
{
    showText(text, QColor(0, 95, 0));
}

void CProgressBarFrame::showWarningText(const QString& text)
{
    showText(text, QColor(154, 74, 0));
}

void CProgressBarFrame::setProgress(const QString& text, float percent)
{
    if (m_ui->progressBar->isHidden())
        m_ui->progressBar->show();
    showMessage(text);
    const int minimum = m_ui->progressBar->minimum();
    const int maximum = m_ui->progressBar->maximum();
    if (percent >= 0.0F && percent <= 100.0F && maximum > minimum) {
        const float share = static_cast<float>(maximum - minimum) * percent / 100.0F;
        m_ui->progressBar->setValue(static_cast<int>(share + static_cast<float>(minimum)));
    }
}

void CProgressBarFrame::announce()
{
    QAccessibleEvent event(m_ui->lineEditProgressBar, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void CProgressBarFrame::setProgressBarVisible(bool visible)
{
    m_ui->progressBar->setVisible(visible);
}

void CProgressBarFrame::showText(const QString& text, const QColor& colour)
{
    m_palette.setBrush(QPalette::Text, QBrush(colour));
    m_ui->lineEditProgressBar->setPalette(m_palette);
    m_ui->lineEditProgressBar->setText(text);
    // A text longer than the line would otherwise show its end.
    m_ui->lineEditProgressBar->setCursorPosition(0);
}
