#include "ui_CMainWindow.h"

#include "app/CMainWindow.h"
#include "logger/Log.h"
#include "ui/CCompareDialog.h"
#include "ui/CSelectAlgFrame.h"

#include <QAction>

#include <utility>

namespace compare = quillon::compare;
namespace logger = quillon::logger;

/// The form of the window has no such entry.
void CMainWindow::createCompareAction()
{
    m_ui->menuEncryption->addSeparator();
    m_compareAction = m_ui->menuEncryption->addAction(QString(), this, &CMainWindow::onUiCompare);
    m_compareAction->setObjectName(QStringLiteral("actionHash_compare"));
    m_compareAction->setEnabled(false);
    const QPlainTextEdit* const digest = m_ui->plainTextEditHashHex;
    connect(digest, &QPlainTextEdit::textChanged, m_compareAction,
            [this, digest] { m_compareAction->setEnabled(!digest->document()->isEmpty()); });
    nameCompareAction();
}

void CMainWindow::nameCompareAction()
{
    m_compareAction->setText(tr("Compare ..."));
    m_compareAction->setToolTip(tr("Compare the hash value with an expected one"));
}

void CMainWindow::onUiCompare()
{
    const thisapp::SHashData session = m_hashData.get();
    const compare::CalculatedValue calculated{session.fileName, session.algorithm.alg,
                                              m_ui->plainTextEditHashHex->toPlainText().toStdString()};
    if (calculated.digits.empty())
        return;
    logger::log(logger::ELogLevel::Debug, "mainwindow",
                [](auto& record) { record << "The hash value is compared."; });
    CCompareDialog dialog(calculated, !isInputFileChanged(), this);
    if (const std::optional<QString> text = std::exchange(m_expectedText, {}))
        dialog.setExpectedText(*text);
    else
        dialog.takeClipboard();
    dialog.exec();
    if (dialog.wantedAlgorithm() != 0)
        calculateAgain(dialog.wantedAlgorithm(), dialog.expectedText());
}

/// Runs the same file with another algorithm, and comes back to the comparison then.
void CMainWindow::calculateAgain(std::uint32_t algorithmId, const QString& expected)
{
    selectAlgorithm(algorithmId);
    onUiStartHashCalculation();
    // Behind the start, which forgets it: the run of a user who presses F5 has no comparison to come back to.
    m_expectedText = expected;
}
