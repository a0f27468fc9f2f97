#pragma once

#include "app/CBaseApp.h"
#include "crypto/HashCatalogue.h"
#include "crypto/IHash.h"
#include "crypto/SHashData.h"
#include "shell/CShellIntegration.h"
#include "sync/Locker.h"
#include "sync/SafeData.h"
#include "thread/IThread.h"
#include "thread/Thread.h"
#include "ui/AlgorithmList.h"
#include "ui/FilesDropTarget.h"
#include "ui/FocusReturn.h"
#include "ui/SAppOptions.h"
#include "ui/SRemainingTimeEstimator.h"

#include <QMainWindow>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CMsgDispatcher;
class COptionsDialog;
class CProgressBarFrame;
class CSelectAlgFrame;
class Ui_CMainWindow;

namespace quillon::platform {
class TaskbarProgress;
} // namespace quillon::platform

/// The program's one window. It owns the hash session: at most one run at a time, on one worker, which talks
/// back through queued signals only. All operations belong to the user interface thread, save those of
/// IRunnable and IHashCallback, which the worker calls, and those of IHashAlgProvider, which any thread may
/// call.
class CMainWindow final : public QMainWindow,
                          public quillon::CBaseApp,
                          public IFilesDragDropEvent,
                          public quillon::thread::IRunnable,
                          public quillon::crypto::IHashCallback,
                          public thisapp::IHashAlgProvider,
                          public thisapp::IAppOptionsChanged
{
    Q_OBJECT

public:
    explicit CMainWindow(QWidget* parent = nullptr);

    /// Cancels a run that is going on and waits for its worker.
    ~CMainWindow() override;

    /// The arguments of the process, without the program's name. Call it before `show`: the first show acts
    /// on the list and drops it.
    void setCommandLine(const QStringList& arguments);

    // CBaseApp
    [[nodiscard]] std::uint32_t getProductId() const override;
    [[nodiscard]] std::uint32_t getProductFlavour() const override;
    void getProductVersion(std::uint32_t& major, std::uint32_t& minor, std::uint32_t& patch,
                           std::uint32_t& build) const override;

    bool decodeSettingValue(const char* key, const QVariant& stored, QVariant* plain) const override;
    bool encodeSettingValue(const char* key, const QVariant& plain, QVariant* stored) const override;

    // IFilesDragDropEvent
    void onFilesDropped(std::int32_t id, const QList<QUrl>& urls) override;

    // IRunnable
    quillon::err::ResultCode run(std::uint32_t id, std::int64_t param) override;

    // IHashCallback
    void onHashStarted(void* userData) override;
    void onHashProgress(std::int64_t processedBytes, float percent, void* userData) override;
    void onHashFinished(bool stopped, const quillon::crypto::HashResult& result, void* userData) override;
    [[nodiscard]] bool isHashStopRequested() const override { return m_stopRequested.get(); }
    void onHashFileChanged() override;

    // IHashAlgProvider
    [[nodiscard]] std::int32_t getAlgorithmCount() const override;
    bool getAlgorithm(std::int32_t index, thisapp::SHashAlgId& id) const override;
    [[nodiscard]] std::string getAlgorithmName(const thisapp::SHashAlgId& id) const override;
    [[nodiscard]] bool isAlgorithmKnown(const thisapp::SHashAlgId& id) const override;

    // IAppOptionsChanged
    void onAppOptionsChanged(const thisapp::SAppOptions& options) override;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void onUiExit();
    void onUiShowOptions();
    void onUiStartHashCalculation();
    void onUiStopHashCalculation();
    void onUiSelectHashAlgorithm();
    void onUiSetInputFile();
    void onUiOpenInputDir();
    void onUiInputFileNameChanged();
    void onUiShowKeyboardShortcuts();
    void onUiShowHideToolbar();
    void onUiCopyHashAsHex();
    void onUiCopyHashAsBase64();
    void onUiCompare();
    void onUiHomePage();
    void onUiSupportEmail();
    void onUiDonate();
    void onUiAbout();
    void onUiHashCalculationStarted();
    void onUiHashCalculationFinished();
    void onUiHashCalculationProgressChanged();

private:
    static constexpr std::uint32_t kHashWorkerId = 1;
    static constexpr std::int32_t kDropTargetFrame = 1;
    static constexpr std::int32_t kDropTargetEdit = 100;

    // Start-up, in CMainWindow.cpp
    void fillAlgorithmCatalogue();
    void createFrames();
    void buildForm();
    void setDropTargets();
    void setFonts();
    void alignTexts();
    void orientTexts();
    void turnForm();
    void connectActions();
    void connectInputs();
    void connectWorker();
    bool getDefaultHashAlgorithm(std::uint32_t& library, std::uint32_t& algorithm) const;
    [[nodiscard]] thisapp::SHashAlgId storedDefaultAlgorithm() const;
    void selectAlgorithm(std::uint32_t algorithmId);
    void processCommandLine(const QStringList& arguments);
    void clearCommandLine();

    // Log file, in CMainWindowLog.cpp
    void startLogging();
    void setFileLoggerEnabled(bool enabled);

    // Options and what they govern, in CMainWindowOptions.cpp
    void fillOptionsDialog(COptionsDialog& dialog);
    [[nodiscard]] bool storeOptions(const thisapp::SAppOptions& options);
    void applyLanguage(std::uint32_t localeId);
    void retranslate();
    void integrateShellContextMenu();
    void integrateSendToMenu();

    // Comparison, in CMainWindowCompare.cpp
    void createCompareAction();
    void nameCompareAction();
    void calculateAgain(std::uint32_t algorithmId, const QString& expected);

    // Input file, in CMainWindowInput.cpp
    [[nodiscard]] QString inputFileName() const;
    void nameDigestFile(const QString& path);
    [[nodiscard]] bool isInputFileChanged() const;
    [[nodiscard]] QString askForInputFile(const QString& title);
    void dropFormerResult();
    void updateInputFileDetails();
    void makeRoomForDetails();

    // Hash session, in CMainWindowSession.cpp
    [[nodiscard]] bool checkAlgorithm(const thisapp::SHashAlgId& id);
    [[nodiscard]] QString requestInputFile();
    [[nodiscard]] bool prepareCalculator(const thisapp::SHashAlgId& id);
    void startWorker(const QString& fileName);
    void showStopped();
    void showFailure(const char* reason, const quillon::crypto::HashResult& result);
    void showDigest();
    void showDigestTexts(const std::vector<char>& digest);
    void showSuccess();
    void copyDigestAsConfigured();
    void clearHashResults();
    void resetStatus(bool force);
    void setInputControlsEnabled(bool enabled);
    void showErrorMessage(const QString& text);
    void updateResultCaption();
    [[nodiscard]] bool isResultOf(const thisapp::SHashData& session) const;
    [[nodiscard]] QString algorithmText(const thisapp::SHashAlgId& id) const;

    std::unique_ptr<Ui_CMainWindow> m_ui;
    CSelectAlgFrame* m_hashAlgFrame = nullptr;
    CProgressBarFrame* m_progressFrame = nullptr;
    CMsgDispatcher* m_msgDispatcher = nullptr;
    quillon::sync::SafeData<quillon::sync::Locker, std::shared_ptr<quillon::crypto::IHash>> m_hash;
    quillon::sync::SafeValue<bool> m_firstShow{true};
    quillon::sync::SafeValue<bool> m_stopRequested{false};
    mutable quillon::sync::SafeData<quillon::sync::Locker, std::vector<thisapp::SHashAlgInfo>> m_hashAlgs;
    quillon::sync::SafeData<quillon::sync::Locker, thisapp::SHashData> m_hashData;
    quillon::thread::Thread m_thread;
    FocusReturn m_focusReturn;
    QAction* m_compareAction = nullptr;
    std::optional<QString> m_expectedText; ///< of a comparison that goes on after the run
    SRemainingTimeEstimator m_remainingTime;
    QStringList m_commandLine;
    std::unique_ptr<quillon::platform::TaskbarProgress> m_taskbarProgress;
    CShellIntegration m_shellIntegration;
};
