#include "ui_CMainWindow.h"

#include "app/CMainWindow.h"
#include "app/CMsgDispatcher.h"
#include "crypto/DigestText.h"
#include "crypto/entry/HashEntry.h"
#include "err/ErrorText.h"
#include "logger/Log.h"
#include "platform/Clock.h"
#include "platform/qt/TaskbarProgress.h"
#include "settings/CAppSettings.h"
#include "settings/CErrMsg.h"
#include "settings/SettingsKeys.h"
#include "text/AsciiText.h"
#include "ui/CProgressBarFrame.h"
#include "ui/CSelectAlgFrame.h"
#include "ui/TextDirection.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>

#include <mutex>

namespace crypto = quillon::crypto;
namespace err = quillon::err;
namespace logger = quillon::logger;
namespace platform = quillon::platform;
using thisapp::SHashAlgId;
using thisapp::SHashData;

namespace {

constexpr std::uint32_t kInputKindFile = 1;
constexpr std::size_t kDigestBufferBytes = 2048;

QString errorSentence(const QString& defaultText, err::ResultCode first, err::ResultCode second = {})
{
    return QString::fromStdString(
        err::formatError(thisapp::CErrMsg(), defaultText.toStdString(), first, second));
}

void copyToClipboard(const QString& text)
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (!text.isEmpty() && clipboard != nullptr)
        clipboard->setText(text);
}

} // namespace

// ---- Start and stop

void CMainWindow::onUiStartHashCalculation()
{
    if (m_thread.isRunning()) {
        showErrorMessage(tr("Hash calculation already running."));
        return;
    }
    // The end of the former run may still be on its way. Told later, it would find the new run's record and
    // calculator, and show that one's empty digest.
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    clearHashResults();
    m_expectedText.reset();
    const SHashAlgId algorithm = m_hashAlgFrame->getCurrentAlgorithm();
    if (!checkAlgorithm(algorithm))
        return;
    const QString fileName = requestInputFile();
    if (fileName.isEmpty() || !prepareCalculator(algorithm))
        return;
    m_hashData.set(SHashData{algorithm, fileName.toStdString(), kInputKindFile, 0.0F, 0, false, {}, false});
    m_stopRequested.set(false);
    startWorker(fileName);
}

bool CMainWindow::checkAlgorithm(const SHashAlgId& id)
{
    if (id.lib == 0)
        showErrorMessage(tr("Cryptographic engine is not defined."));
    else if (id.alg == 0)
        showErrorMessage(tr("Hash algorithm is not defined."));
    return id.lib != 0 && id.alg != 0;
}

/// The file to digest, asked for where the edit field has none. Empty, with the reason on the status line,
/// where there is none to digest.
QString CMainWindow::requestInputFile()
{
    if (inputFileName().isEmpty()) {
        const QString chosen = askForInputFile(tr("Select file to calculate hash"));
        if (!chosen.isEmpty())
            m_ui->lineEditInput->setText(chosen);
    }
    QString fileName = inputFileName();
    if (fileName.isEmpty()) {
        showErrorMessage(tr("File to calculate hash is not defined."));
        return {};
    }
    if (!QFileInfo::exists(fileName)) {
        showErrorMessage(tr("File to calculate hash is not found."));
        return {};
    }
    return fileName;
}

/// Each run gets a calculator of its own, since one that was stopped keeps what it has absorbed.
bool CMainWindow::prepareCalculator(const SHashAlgId& id)
{
    m_hash.set(crypto::getHashCalculator(id.lib, id.alg));
    if (m_hash.get() != nullptr)
        return true;
    showErrorMessage(tr("Failed to prepare hash engine."));
    return false;
}

void CMainWindow::startWorker(const QString& fileName)
{
    const err::ResultCode started = m_thread.start();
    if (!err::succeeded(started)) {
        showErrorMessage(errorSentence(tr("Failed to start the hash calculation."), started));
        return;
    }
    m_remainingTime.begin(static_cast<std::uint64_t>(QFileInfo(fileName).size()), platform::tickCountMs());
}

void CMainWindow::onUiStopHashCalculation()
{
    m_stopRequested.set(true);
    m_remainingTime.reset();
    const std::lock_guard guard(m_hash);
    if (m_hash.value != nullptr)
        m_hash.value->stop();
}

// ---- On the worker: nothing here touches a widget

err::ResultCode CMainWindow::run(std::uint32_t id, std::int64_t /*param*/)
{
    if (id != kHashWorkerId)
        return {};
    m_msgDispatcher->hashCalculationStarted();
    SHashData session;
    {
        const std::lock_guard guard(m_hashData);
        m_hashData.value.result = {};
        session = m_hashData.value;
    }
    const crypto::HashResult result = crypto::calculateHash(session, m_hash.get(), this);
    if (!crypto::succeeded(result)) {
        const std::lock_guard guard(m_hashData);
        m_hashData.value.result = result;
        // A stop that ended the wait for a file came before any report of the run.
        m_hashData.value.stopped |= result == crypto::hashError(err::kHashStopped);
    }
    m_msgDispatcher->hashCalculationFinished();
    return {};
}

void CMainWindow::onHashStarted(void* /*userData*/) {}

void CMainWindow::onHashProgress(std::int64_t processedBytes, float percent, void* /*userData*/)
{
    {
        const std::lock_guard guard(m_hashData);
        m_hashData.value.percent = percent;
        m_hashData.value.processedBytes = static_cast<std::uint64_t>(processedBytes);
    }
    m_msgDispatcher->hashCalculationProgress();
}

void CMainWindow::onHashFinished(bool stopped, const crypto::HashResult& result, void* /*userData*/)
{
    const std::lock_guard guard(m_hashData);
    m_hashData.value.stopped = stopped;
    m_hashData.value.result = result;
}

void CMainWindow::onHashFileChanged()
{
    const std::lock_guard guard(m_hashData);
    m_hashData.value.fileChanged = true;
}

// ---- What the worker reported, back on the user interface thread

void CMainWindow::onUiHashCalculationStarted()
{
    m_taskbarProgress->show();
    m_taskbarProgress->setValue(0);
    const SHashData session = m_hashData.get();
    m_progressFrame->setProgress(algorithmText(session.algorithm) +
                                     tr("%1% processed").arg(isolated(QStringLiteral("0.000"))) +
                                     QStringLiteral("."),
                                 0.0F);
    m_progressFrame->setProgressBarVisible(true);
    m_progressFrame->show();
    updateResultCaption();
    setInputControlsEnabled(false);
}

void CMainWindow::onUiHashCalculationProgressChanged()
{
    const SHashData session = m_hashData.get();
    std::uint32_t hours = 0;
    std::uint32_t minutes = 0;
    std::uint32_t seconds = 0;
    // Where no estimate is possible all three are 0, and that is what is shown.
    static_cast<void>(
        m_remainingTime.estimate(session.processedBytes, platform::tickCountMs(), hours, minutes, seconds));
    QString remaining;
    if (hours > 0)
        remaining = tr("Remaining time: %1 hours %2 minutes %3 seconds").arg(hours).arg(minutes).arg(seconds);
    else if (minutes > 0)
        remaining = tr("Remaining time: %1 minutes %2 seconds").arg(minutes).arg(seconds);
    else
        remaining = tr("Remaining time: %1 seconds").arg(seconds);
    const QString percent = QString::asprintf("%.3f", static_cast<double>(session.percent));
    m_progressFrame->setProgress(algorithmText(session.algorithm) +
                                     tr("%1% processed").arg(isolated(percent)) + QStringLiteral(". ") +
                                     remaining + QStringLiteral(". "),
                                 session.percent);
    m_taskbarProgress->setValue(static_cast<int>(session.percent));
}

void CMainWindow::onUiHashCalculationFinished()
{
    // All that is left to the worker is to return: a start first hears out the run before, so this is never
    // the end of a run while another goes on. Without the wait a start that follows at once could be refused.
    m_thread.wait();
    m_taskbarProgress->hide();
    m_taskbarProgress->setValue(0);
    setInputControlsEnabled(true);
    const SHashData session = m_hashData.get();
    if (session.stopped)
        showStopped();
    else if (!crypto::succeeded(session.result))
        showFailure("Failed to calculate hash.", session.result);
    else
        showDigest();
    m_progressFrame->announce();
    updateResultCaption();
    if (m_expectedText && !session.stopped && crypto::succeeded(session.result))
        QMetaObject::invokeMethod(this, "onUiCompare", Qt::QueuedConnection);
}

void CMainWindow::showStopped()
{
    logger::log(logger::ELogLevel::Information, "mainwindow",
                [](auto& record) { record << "Hash calculation was canceled"; });
    showErrorMessage(tr("Hash calculation was canceled"));
}

/// `reason` is for the log.
void CMainWindow::showFailure(const char* reason, const crypto::HashResult& result)
{
    logger::log(logger::ELogLevel::Error, "mainwindow", [&](auto& record) {
        record << reason << " Error: " << err::errorCodesText(result.primary, result.secondary);
    });
    clearHashResults();
    showErrorMessage(errorSentence(tr("Failed to calculate hash."), result.primary, result.secondary));
}

void CMainWindow::showDigest()
{
    std::vector<char> digest(kDigestBufferBytes);
    crypto::HashResult result;
    {
        const std::lock_guard guard(m_hash);
        const auto digestBytes = static_cast<std::size_t>(m_hash.value->getDigestSize());
        result = m_hash.value->getDigest(digest.data(), static_cast<std::int32_t>(digest.size()));
        digest.resize(digestBytes);
    }
    if (!crypto::succeeded(result)) {
        showFailure("Failed to get calculated hash.", result);
        return;
    }
    showDigestTexts(digest);
    showSuccess();
    copyDigestAsConfigured();
}

/// Says whose digest it is where the edit field names another file by now.
void CMainWindow::showSuccess()
{
    const SHashData session = m_hashData.get();
    QString text = tr("Hash was calculated successfully");
    if (isInputFileChanged()) {
        const QString path = QFileInfo(QString::fromStdString(session.fileName)).absoluteFilePath();
        const QString name = QFileInfo(path).fileName();
        const QString& shown = name == QFileInfo(inputFileName()).fileName() ? path : name;
        text +=
            QStringLiteral(": ") + isolated(fontMetrics().elidedText(shown, Qt::ElideMiddle, width() / 2));
        nameDigestFile(path);
    }
    if (session.fileChanged)
        text += QStringLiteral(". ") + tr("The file was changed during the calculation.");
    m_progressFrame->setProgressBarVisible(false);
    if (session.fileChanged)
        m_progressFrame->showWarningText(text);
    else
        m_progressFrame->showSuccessText(text);
    m_progressFrame->show();
}

void CMainWindow::showDigestTexts(const std::vector<char>& digest)
{
    m_ui->plainTextEditHashHex->setPlainText(QString::fromStdString(crypto::bytesToHex(digest)));
    m_ui->plainTextEditHashBase64->setPlainText(QString::fromStdString(crypto::bytesToBase64(digest)));
}

void CMainWindow::copyDigestAsConfigured()
{
    namespace settings = thisapp::settings;
    const int what = settings::WhatCopyToClipboard.read(CAppSettings());
    if (what == thisapp::kCopyHex)
        onUiCopyHashAsHex();
    else if (what == thisapp::kCopyBase64)
        onUiCopyHashAsBase64();
}

void CMainWindow::onUiCopyHashAsHex()
{
    copyToClipboard(m_ui->plainTextEditHashHex->toPlainText().trimmed());
}

void CMainWindow::onUiCopyHashAsBase64()
{
    copyToClipboard(m_ui->plainTextEditHashBase64->toPlainText().trimmed());
}

// ---- State of the form

void CMainWindow::clearHashResults()
{
    m_ui->plainTextEditHashHex->setPlainText(QString());
    m_ui->plainTextEditHashBase64->setPlainText(QString());
    nameDigestFile({});
}

void CMainWindow::resetStatus(bool force)
{
    if (m_thread.isRunning() && !force)
        return;
    m_progressFrame->hide();
    m_progressFrame->setProgressBarVisible(false);
    m_progressFrame->showMessage(QString());
}

void CMainWindow::setInputControlsEnabled(bool enabled)
{
    m_ui->actionFile_AddFile->setEnabled(enabled);
    m_ui->actionHash_Calculate->setEnabled(enabled);
    m_ui->actionHash_selectAlgorithm->setEnabled(enabled);
    if (enabled)
        m_focusReturn.enable({m_ui->lineEditInput, m_ui->buttonDefineInputFile});
    else
        m_focusReturn.disable({m_ui->lineEditInput, m_ui->buttonDefineInputFile});
}

void CMainWindow::showErrorMessage(const QString& text)
{
    m_progressFrame->setProgressBarVisible(false);
    m_progressFrame->showErrorText(text);
    if (m_progressFrame->isHidden())
        m_progressFrame->show();
}

/// Whether the digest on screen belongs to the file in the edit field.
bool CMainWindow::isResultOf(const SHashData& session) const
{
    return !session.stopped && crypto::succeeded(session.result) && !session.fileName.empty() &&
           session.percent > 0.0F &&
           quillon::text::equalsIgnoringAsciiCase(session.fileName, inputFileName().toStdString()) &&
           session.algorithm.lib != 0 && session.algorithm.alg != 0;
}

void CMainWindow::updateResultCaption()
{
    // After a stop the caption keeps its text until the next start.
    if (m_stopRequested.get())
        return;
    const SHashData session = m_hashData.get();
    QString caption = tr("Calculated hash for the file");
    if (isResultOf(session))
        caption = tr("Calculated hash for the file (%1)")
                      .arg(isolated(QString::fromStdString(getAlgorithmName(session.algorithm))));
    m_ui->labelResultCaption->setText(caption);
}

/// The algorithm's name as the status line begins with it.
QString CMainWindow::algorithmText(const SHashAlgId& id) const
{
    return isolated(QString::fromStdString(getAlgorithmName(id))) + QStringLiteral(". ");
}
