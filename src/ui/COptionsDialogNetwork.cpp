#include "ui_COptionsDialog.h"

#include "err/ErrorText.h"
#include "err/ResultCode.h"
#include "platform/SystemProxy.h"
#include "ui/COptionsDialog.h"

#include <QCoreApplication>
#include <QTimerEvent>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <mutex>
#include <optional>

namespace err = quillon::err;

namespace {

constexpr int kDecimal = 10;
constexpr int kLookAgainMs = 100;
constexpr QColor kNeutralColor(0, 0, 0);
constexpr QColor kSuccessColor(0, 95, 0);
constexpr QColor kFailureColor(255, 0, 0);

/// Keeps a connection check that outlives its dialog, so that the program waits for its end before it tears
/// down what the check stands on. Deletes itself once the check has ended.
template <class Call>
class Remainder final : public QObject
{
public:
    Remainder(std::unique_ptr<Call> call, QObject* parent)
        : QObject(parent)
        , m_call(std::move(call))
    {
        startTimer(kLookAgainMs);
        // The window goes before the application object, and the check writes to its log.
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
                [this] { m_call->join(); });
    }
    ~Remainder() override { m_call->join(); }

protected:
    void timerEvent(QTimerEvent* /*event*/) override
    {
        if (m_call->isIdle())
            deleteLater();
    }

private:
    std::unique_ptr<Call> m_call;
};

/// What `work` answers, or `failure` where memory runs out in it.
template <class Work, class Answer>
Answer answerOf(const Work& work, const Answer& failure)
{
    try {
        return work();
    } catch (const std::exception&) {
        return failure;
    }
}

constexpr std::uint32_t kLongestReturnMs = 20;

constexpr err::ResultCode kNoMemory = err::programError(err::kFirstBufferNotAllocated);

} // namespace

void COptionsDialog::connectJobs()
{
    m_queryThread.setId(kQueryThreadId);
    m_queryThread.setRunnable(this);
    m_checkThread.setId(kCheckThreadId);
    m_checkThread.setRunnable(this);
    connect(this, &COptionsDialog::notifyQuerySystemProxySettingsStarted, this,
            &COptionsDialog::onUiQuerySystemProxySettingsStarted, Qt::QueuedConnection);
    connect(this, &COptionsDialog::notifyQuerySystemProxySettingsFinished, this,
            &COptionsDialog::onUiQuerySystemProxySettingsFinished, Qt::QueuedConnection);
    connect(this, &COptionsDialog::notifyCheckNetworkConnectionStarted, this,
            &COptionsDialog::onUiCheckNetworkConnectionStarted, Qt::QueuedConnection);
    connect(this, &COptionsDialog::notifyCheckNetworkConnectionFinished, this,
            &COptionsDialog::onUiCheckNetworkConnectionFinished, Qt::QueuedConnection);
}

/// The two threads end at once, since they only wait for a call that works on what it owns itself. A query of
/// the system is left to itself, as nobody can end it; a check is told to end.
void COptionsDialog::closeJobs()
{
    m_closing.set(true);
    m_check->stop();
    m_queryCall.abandon();
    if (m_checkCall)
        m_checkCall->abandon();
    m_queryThread.wait();
    m_checkThread.wait();
    if (m_checkCall && !m_checkCall->isIdle())
        new Remainder<CheckCall>(std::move(m_checkCall), QCoreApplication::instance());
}

err::ResultCode COptionsDialog::run(std::uint32_t id, std::int64_t /*param*/)
{
    if (id == kQueryThreadId)
        runSystemQuery();
    else if (id == kCheckThreadId)
        runConnectionCheck();
    return {};
}

void COptionsDialog::runSystemQuery()
{
    if (m_closing.get())
        return;
    emit notifyQuerySystemProxySettingsStarted();
    const std::optional<SGetSystemProxySettings> answer = m_queryCall.run([query = m_systemQuery] {
        return answerOf(query, SGetSystemProxySettings{{}, kNoMemory});
    });
    if (!answer)
        return;
    {
        const std::lock_guard guard(m_systemProxy);
        m_systemProxy.value.result = answer->result;
        if (err::succeeded(answer->result))
            m_systemProxy.value.proxy = answer->proxy;
    }
    if (!m_closing.get())
        emit notifyQuerySystemProxySettingsFinished();
}

void COptionsDialog::runConnectionCheck()
{
    if (m_closing.get())
        return;
    emit notifyCheckNetworkConnectionStarted();
    const std::optional<err::ResultCodes> result =
        m_checkCall->run([check = m_check, proxy = m_connectionCheck.get().proxy] {
            return answerOf([&] { return check->check(proxy); }, err::ResultCodes{kNoMemory, {}, {}});
        });
    if (!result)
        return;
    {
        const std::lock_guard guard(m_connectionCheck);
        m_connectionCheck.value.result = *result;
    }
    if (!m_closing.get())
        emit notifyCheckNetworkConnectionFinished();
}

void COptionsDialog::fillProxy()
{
    m_ui->lineEditProxyAddress->setText(QString::fromStdString(m_options.netProxy.server));
    m_ui->lineEditProxyPort->setText(QString::number(m_options.netProxy.port, kDecimal));
    m_ui->lineEditProxyLogin->setText(QString::fromStdString(m_options.netProxy.login));
    m_ui->lineEditProxyPassword->setText(QString::fromStdString(m_options.netProxy.password));
    QComboBox& combo = *m_ui->comboBoxProxyConfigType;
    const auto addRow = [&combo](const QString& text, EProxySelectType type) {
        combo.addItem(text, static_cast<int>(type));
    };
    combo.clear();
    addRow(tr("No proxy"), EProxySelectType::None);
    addRow(tr("Use system proxy settings"), EProxySelectType::System);
    addRow(tr("Manual proxy configuration"), EProxySelectType::Manual);
    if (const int row = combo.findData(static_cast<int>(m_options.proxySelectType)); row >= 0)
        combo.setCurrentIndex(row);
    m_ui->buttonSystemProxySettings->setEnabled(quillon::platform::hasSystemProxySettings());
}

/// Leaves some air around texts that are longer than the form's.
void COptionsDialog::fitNetworkButtons()
{
    constexpr int kLeastWidth = 145;
    constexpr int kAir = 12;
    for (QPushButton* button : {m_ui->buttonCheckConnection, m_ui->buttonSystemProxySettings})
        button->setMinimumWidth(std::max(kLeastWidth, button->sizeHint().width() + 2 * kAir));
}

/// The selection that was set where the combo box shows none.
COptionsDialog::EProxySelectType COptionsDialog::shownProxySelectType() const
{
    const QVariant shown = m_ui->comboBoxProxyConfigType->currentData(Qt::UserRole);
    return shown.isValid() ? static_cast<EProxySelectType>(shown.toInt()) : m_options.proxySelectType;
}

COptionsDialog::ProxyRecord COptionsDialog::typedProxy() const
{
    const auto typed = [](const QLineEdit* edit) { return edit->text().trimmed().toStdString(); };
    return {0, typed(m_ui->lineEditProxyAddress),
            m_ui->lineEditProxyPort->text().trimmed().toInt(nullptr, kDecimal),
            typed(m_ui->lineEditProxyLogin), typed(m_ui->lineEditProxyPassword)};
}

void COptionsDialog::updateProxyControls()
{
    const EProxySelectType type = shownProxySelectType();
    for (QLineEdit* edit : {m_ui->lineEditProxyAddress, m_ui->lineEditProxyPort}) {
        if (type == EProxySelectType::System)
            edit->clear();
        edit->setEnabled(type == EProxySelectType::Manual);
    }
    for (QLineEdit* edit : {m_ui->lineEditProxyLogin, m_ui->lineEditProxyPassword})
        edit->setEnabled(type != EProxySelectType::None);
}

void COptionsDialog::onUiProxySelectTypeChanged(int /*index*/)
{
    if (shownProxySelectType() == EProxySelectType::System && !m_queryThread.isRunning())
        static_cast<void>(m_queryThread.start()); // without a thread the fields just stay empty
    updateProxyControls();
}

void COptionsDialog::onUiQuerySystemProxySettingsStarted()
{
    m_queryFocus.disable({m_ui->comboBoxProxyConfigType});
}

void COptionsDialog::onUiQuerySystemProxySettingsFinished()
{
    // It only has to return, and a new choice must be able to start it again, which one may just have done.
    static_cast<void>(m_queryThread.waitFor(kLongestReturnMs));
    const SGetSystemProxySettings state = m_systemProxy.get();
    if (err::succeeded(state.result)) {
        m_ui->lineEditProxyAddress->setText(QString::fromStdString(state.proxy.server));
        m_ui->lineEditProxyPort->setText(QString::number(state.proxy.port, kDecimal));
        showNetworkResult({}, kNeutralColor);
    } else {
        showNetworkFailure(tr("Failed to get system proxy settings."), err::errorCodesText(state.result));
    }
    m_queryFocus.enable({m_ui->comboBoxProxyConfigType});
}

void COptionsDialog::onUiCheckNetworkConnection()
{
    if (m_checkThread.isRunning())
        return;
    m_connectionCheck.set({typedProxy(), {}});
    const err::ResultCode started = m_checkThread.start();
    if (err::succeeded(started)) {
        showNetworkResult({}, kNeutralColor);
        m_checkFocus.disable({m_ui->buttonCheckConnection});
    } else {
        m_checkFocus.enable({m_ui->buttonCheckConnection});
        showNetworkFailure(tr("Failed to check network connection."), err::errorCodesText(started));
    }
}

void COptionsDialog::onUiCheckNetworkConnectionStarted()
{
    m_checkFocus.disable({m_ui->buttonCheckConnection});
}

void COptionsDialog::onUiCheckNetworkConnectionFinished()
{
    static_cast<void>(m_checkThread.waitFor(kLongestReturnMs)); // so that the next click can start it again
    const SCheckNetworkConnection state = m_connectionCheck.get();
    if (state.isSuccess())
        showNetworkResult(tr("Internet connection was checked successfully"), kSuccessColor);
    else
        showNetworkFailure(tr("Failed to check network connection."),
                           err::errorCodesText(state.result.first, state.result.second, state.result.third));
    m_checkFocus.enable({m_ui->buttonCheckConnection});
}

void COptionsDialog::showNetworkFailure(const QString& sentence, const std::string& codes)
{
    showNetworkResult(sentence + QLatin1Char(' ') + tr("Error: %1").arg(QString::fromStdString(codes)) +
                          QLatin1Char('.'),
                      kFailureColor);
}

void COptionsDialog::showNetworkResult(const QString& text, const QColor& color)
{
    m_textPalette.setColor(QPalette::Text, color);
    m_ui->lineEditNetworkLogs->setPalette(m_textPalette);
    m_ui->lineEditNetworkLogs->setText(text);
}

void COptionsDialog::onUiShowSystemProxySettings()
{
    quillon::platform::showSystemProxySettings();
}
