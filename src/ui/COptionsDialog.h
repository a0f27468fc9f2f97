#pragma once

#include "crypto/HashCatalogue.h"
#include "err/ResultCode.h"
#include "i18n/Locale.h"
#include "i18n/Translation.h"
#include "sync/Locker.h"
#include "sync/SafeData.h"
#include "thread/IThread.h"
#include "thread/Thread.h"
#include "ui/AbandonableCall.h"
#include "ui/AlgorithmList.h"
#include "ui/FocusReturn.h"
#include "ui/SAppOptions.h"
#include "web/ConnectionCheck.h"
#include "web/NetProxy.h"
#include "web/SystemProxy.h"

#include <QDialog>
#include <QPalette>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

class QListWidget;
class Ui_COptionsDialog;

/// Shows and changes everything that the program persists. It touches no store: the owner sets the values
/// before `exec` and takes them back, on Apply through IAppOptionsChanged and after OK through the getters.
/// One `exec` an object. All operations belong to the user interface thread, save `run`.
class COptionsDialog final : public QDialog, public quillon::thread::IRunnable
{
    Q_OBJECT

public:
    using SGetSystemProxySettings = quillon::web::SGetSystemProxySettings;
    using SCheckNetworkConnection = quillon::web::SCheckNetworkConnection;
    using EProxySelectType = quillon::web::EProxySelectType;
    using ProxyRecord = quillon::web::NetProxy<char>;
    using LocaleCallback = quillon::i18n::internal::ILocaleCallback<char>;
    using TranslationList = quillon::i18n::internal::ITranslationListProvider<char>;
    using SystemQuery = std::function<SGetSystemProxySettings()>;

    static constexpr std::uint32_t kQueryThreadId = 1;
    static constexpr std::uint32_t kCheckThreadId = 2;

    explicit COptionsDialog(QWidget* parent = nullptr);

    /// Ends both jobs as closing does.
    ~COptionsDialog() override;

    // Set these before `exec`. Whatever a pointer leads to stays the caller's and must outlive the dialog;
    // each may be null, and what needs it is then left out.
    void setAlgProvider(const thisapp::IHashAlgProvider* provider) { m_algProvider = provider; }
    void setOptionsChanged(thisapp::IAppOptionsChanged* listener) { m_optionsChanged = listener; }
    void setTranslationList(const TranslationList* list) { m_translationList = list; }
    void setLocaleCallback(LocaleCallback* callback) { m_localeCallback = callback; }

    void setShellContextMenu(bool isOn) { m_options.shellContextMenu = isOn; }
    void setSendToLink(bool isOn) { m_options.sendToLink = isOn; }
    void setLocaleId(std::uint32_t id) { m_options.localeId = id; }
    void setDefaultAlg(const thisapp::SHashAlgId& id) { m_options.defaultAlg = id; }
    void setUseDefaultAlg(bool isOn) { m_options.useDefaultAlg = isOn; }
    void setWhatCopy(std::int32_t whatCopy) { m_options.whatCopy = whatCopy; }
    void setLogLevel(std::int32_t level) { m_options.logLevel = level; }
    void setUseLogFile(bool isOn) { m_options.useLogFile = isOn; }
    void setFontName(const std::string& name) { m_options.fontName = name; }
    void setFontSize(std::int32_t points) { m_options.fontSize = points; }
    void setLogFilePath(const QString& path) { m_logFilePath = path; }
    void setNetProxy(const ProxyRecord& proxy) { m_options.netProxy = proxy; }
    void setProxySelectType(EProxySelectType type) { m_options.proxySelectType = type; }

    /// What asks the system for its proxy; web::querySystemProxy until it is set. Called on a thread that may
    /// outlive the dialog.
    void setSystemQuery(SystemQuery query) { m_systemQuery = std::move(query); }

    /// What checks the connection, not null; one that is made with its defaults until it is set. The dialog's
    /// closing stops it for good.
    void setConnectionCheck(std::shared_ptr<quillon::web::ConnectionCheck> check)
    {
        m_check = std::move(check);
    }

    [[nodiscard]] bool getShellContextMenu() const { return m_options.shellContextMenu; }
    [[nodiscard]] bool getSendToLink() const { return m_options.sendToLink; }
    [[nodiscard]] std::uint32_t getLocaleId() const { return m_options.localeId; }
    [[nodiscard]] thisapp::SHashAlgId getDefaultAlg() const { return m_options.defaultAlg; }
    [[nodiscard]] bool getUseDefaultAlg() const { return m_options.useDefaultAlg; }
    [[nodiscard]] std::int32_t getWhatCopy() const { return m_options.whatCopy; }
    [[nodiscard]] std::int32_t getLogLevel() const { return m_options.logLevel; }
    [[nodiscard]] bool getUseLogFile() const { return m_options.useLogFile; }
    [[nodiscard]] std::string getFontName() const { return m_options.fontName; }
    [[nodiscard]] std::int32_t getFontSize() const { return m_options.fontSize; }
    [[nodiscard]] ProxyRecord getNetProxy() const { return m_options.netProxy; }
    [[nodiscard]] EProxySelectType getProxySelectType() const { return m_options.proxySelectType; }

    /// All of them in one record.
    [[nodiscard]] const thisapp::SAppOptions& getAppOptions() const { return m_options; }

    /// Runs the job of the thread with this id.
    quillon::err::ResultCode run(std::uint32_t id, std::int64_t param) override;

    /// Hides the dialog, then ends both jobs without waiting for the network or the system. Every way out
    /// comes through here.
    void done(int result) override;

signals:
    void notifyQuerySystemProxySettingsStarted();
    void notifyQuerySystemProxySettingsFinished();
    void notifyCheckNetworkConnectionStarted();
    void notifyCheckNetworkConnectionFinished();

public slots:
    void onUiSupportEmailClicked(const QString& strUrl);
    void onUiApply();
    void onUiOk();
    void onUiCancel();
    void onUiLanguageChanged(int index);
    void onUiProxySelectTypeChanged(int index);
    void onUiViewLogFileClicked(const QString& strUrl);
    void onUiCheckNetworkConnection();
    void onUiShowSystemProxySettings();
    void onUiQuerySystemProxySettingsStarted();
    void onUiQuerySystemProxySettingsFinished();
    void onUiCheckNetworkConnectionStarted();
    void onUiCheckNetworkConnectionFinished();

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    using CheckCall = AbandonableCall<quillon::err::ResultCodes>;

    // Form, in COptionsDialog.cpp
    [[nodiscard]] static thisapp::SAppOptions initialOptions();
    void orientTexts();
    void createLists();
    void fitShortcutTable();
    void connectControls();
    void fillAbout();
    void fillDefaultAlgorithm();
    void fillCheckBoxes();
    void fillAutocopy();
    void fillLogging();
    void enableAdvanced();
    void fillLanguages();
    void collectFromUi();
    [[nodiscard]] std::uint32_t shownLocaleId() const;
    [[nodiscard]] std::int32_t chosenWhatCopy() const;

    // Network jobs, in COptionsDialogNetwork.cpp
    void connectJobs();
    void closeJobs();
    void fillProxy();
    void fitNetworkButtons();
    void runSystemQuery();
    void runConnectionCheck();
    void updateProxyControls();
    [[nodiscard]] EProxySelectType shownProxySelectType() const;
    [[nodiscard]] ProxyRecord typedProxy() const;
    void showNetworkFailure(const QString& sentence, const std::string& codes);
    void showNetworkResult(const QString& text, const QColor& color);

    std::unique_ptr<Ui_COptionsDialog> m_ui;
    quillon::sync::SafeValue<bool> m_closing{false};
    quillon::sync::SafeValue<bool> m_firstShow{true};
    QListWidget* m_defaultAlgs = nullptr;
    const thisapp::IHashAlgProvider* m_algProvider = nullptr;
    thisapp::IAppOptionsChanged* m_optionsChanged = nullptr;
    const TranslationList* m_translationList = nullptr;
    LocaleCallback* m_localeCallback = nullptr;
    thisapp::SAppOptions m_options = initialOptions();
    QString m_logFilePath;
    FocusReturn m_queryFocus;
    FocusReturn m_checkFocus;
    quillon::sync::SafeData<quillon::sync::Locker, SGetSystemProxySettings> m_systemProxy;
    quillon::sync::SafeData<quillon::sync::Locker, SCheckNetworkConnection> m_connectionCheck;
    SystemQuery m_systemQuery = quillon::web::querySystemProxy;
    AbandonableCall<SGetSystemProxySettings> m_queryCall;
    std::shared_ptr<quillon::web::ConnectionCheck> m_check =
        std::make_shared<quillon::web::ConnectionCheck>(); ///< its call may outlive the dialog
    std::unique_ptr<CheckCall> m_checkCall = std::make_unique<CheckCall>();
    quillon::thread::Thread m_queryThread;
    quillon::thread::Thread m_checkThread;
    QPalette m_textPalette;
};
