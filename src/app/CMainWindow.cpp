#include "app/CMainWindow.h"

#include "ui_CMainWindow.h"

#include "app/CMsgDispatcher.h"
#include "app/CommandLine.h"
#include "crypto/HashCatalogue.h"
#include "logger/Log.h"
#include "platform/qt/TaskbarProgress.h"
#include "settings/SettingsKeys.h"
#include "ui/AccessibleNames.h"
#include "ui/Appearance.h"
#include "ui/CProgressBarFrame.h"
#include "ui/CSelectAlgFrame.h"
#include "ui/CSelectAlgorithmDialog.h"
#include "ui/TextDirection.h"
#include "vars/Product.h"

#include <QApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QUrl>

#include <algorithm>
#include <mutex>
#include <utility>

namespace crypto = quillon::crypto;
namespace logger = quillon::logger;
namespace vars = quillon::vars;
using quillon::thread::WaitStatus;
using thisapp::SHashAlgId;
using thisapp::SHashAlgInfo;

namespace {

constexpr int kCaptionFontDelta = 1;

// A stop that comes before the worker has begun its run is lost, so the closing window repeats it.
constexpr std::uint32_t kStopRepeatMs = 20;

} // namespace

CMainWindow::CMainWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_ui(std::make_unique<Ui_CMainWindow>())
{
    initialiseResources();
    nameComboBoxesByTheirLabels();
    QApplication::setFont(QApplication::font());
    applyCoreAppIdentity();
    startLogging();
    fillAlgorithmCatalogue();
    createFrames();
    m_thread.setId(kHashWorkerId);
    m_thread.setRunnable(this);
    buildForm();
    setDropTargets();
    statusBar()->addWidget(m_progressFrame, 1);
    m_ui->toolBar->insertWidget(m_ui->actionHash_Stop, m_hashAlgFrame);
    m_shellIntegration.init();
    setFonts();
    alignTexts();
    orientTexts();
    createCompareAction();
    connectActions();
    connectInputs();
    connectWorker();
    loadNetProxy();
}

CMainWindow::~CMainWindow()
{
    m_stopRequested.set(true);
    do {
        onUiStopHashCalculation();
    } while (m_thread.waitFor(kStopRepeatMs) == WaitStatus::TimedOut);
    m_ui.reset();
    delete std::exchange(m_msgDispatcher, nullptr);
}

void CMainWindow::fillAlgorithmCatalogue()
{
    const std::lock_guard guard(m_hashAlgs);
    for (const crypto::HashAlgorithm& row : crypto::hashCatalogue())
        m_hashAlgs.value.push_back({row.id, row.strong});
}

void CMainWindow::createFrames()
{
    m_hashAlgFrame = new CSelectAlgFrame(this);
    m_progressFrame = new CProgressBarFrame(this);
    m_msgDispatcher = new CMsgDispatcher(this);
    m_hashAlgFrame->setHashAlgProvider(this);
}

void CMainWindow::buildForm()
{
    m_ui->setupUi(this);
    m_hashAlgFrame->reloadAlgorithms();
    m_progressFrame->hide();
}

void CMainWindow::setDropTargets()
{
    m_ui->frameInputFile->setDropId(kDropTargetFrame);
    m_ui->frameInputFile->setDropHandler(this);
    m_ui->lineEditInput->setDropId(kDropTargetEdit);
    m_ui->lineEditInput->setDropHandler(this);
}

void CMainWindow::setFonts()
{
    const QFont font = QApplication::font();
    for (QWidget* widget : std::initializer_list<QWidget*>{m_ui->menuBar, m_ui->toolBar, m_ui->lineEditInput})
        widget->setFont(font);
    const QFont caption = adjustFontBold(font, kCaptionFontDelta, true);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{m_ui->labelInputFileCaption, m_ui->labelResultCaption,
                                         m_ui->plainTextEditHashHex, m_ui->plainTextEditHashBase64})
        widget->setFont(caption);
    m_ui->textEditInputFileDetails->setFont(adjustFontItalic(font, 0, true));
    // An empty panel would load the italic font all the same, which takes longer than all icons do.
    m_ui->textEditInputFileDetails->document()->setDefaultFont(font);
}

/// Gives captions, labels and the texts of all fields one left edge: that of the status line, which nobody
/// can move.
void CMainWindow::alignTexts()
{
    constexpr int kEdge = 10;
    constexpr int kCaptionMargin = 9;  // of the layout around each caption
    constexpr int kLineEditMargin = 2; // which the toolkit adds
    for (QLabel* label : {m_ui->labelInputFileCaption, m_ui->labelResultCaption})
        label->setIndent(kEdge - kCaptionMargin);
    for (QLabel* label : {m_ui->labelResultHexCaption, m_ui->labelResultBase64Caption})
        label->setIndent(kEdge);
    m_ui->lineEditInput->setTextMargins(kEdge - kLineEditMargin, 0, 0, 0);
    for (QPlainTextEdit* digest : {m_ui->plainTextEditHashHex, m_ui->plainTextEditHashBase64})
        digest->document()->setDocumentMargin(kEdge);
    m_ui->textEditInputFileDetails->document()->setDocumentMargin(kEdge);
    makeRoomForDetails();
}

/// Paths and digests are read from left to right in every language.
void CMainWindow::orientTexts()
{
    m_ui->lineEditInput->setLayoutDirection(Qt::LeftToRight);
    showLeftToRight(*m_ui->plainTextEditHashHex);
    showLeftToRight(*m_ui->plainTextEditHashBase64);
    turnForm();
}

/// What the toolkit does not turn by itself: margins, and icons that point.
void CMainWindow::turnForm()
{
    for (QLayout* caption : std::initializer_list<QLayout*>{m_ui->horizontalLayoutInputFileCaption,
                                                            m_ui->horizontalLayoutOutputFileCaption}) {
        const QMargins margins = caption->contentsMargins();
        const int edge = std::max(margins.left(), margins.right());
        caption->setContentsMargins(isRightToLeft() ? 0 : edge, margins.top(), isRightToLeft() ? edge : 0,
                                    margins.bottom());
    }
    m_ui->actionFile_Exit->setIcon(pointingIcon(QStringLiteral(":/kestrum/exit.ico")));
}

void CMainWindow::connectActions()
{
    using Slot = void (CMainWindow::*)();
    const std::initializer_list<std::pair<QAction*, Slot>> rows{
        {m_ui->actionFile_AddFile, &CMainWindow::onUiSetInputFile},
        {m_ui->actionFile_Exit, &CMainWindow::onUiExit},
        {m_ui->actionHash_Calculate, &CMainWindow::onUiStartHashCalculation},
        {m_ui->actionHash_Stop, &CMainWindow::onUiStopHashCalculation},
        {m_ui->actionHelp_HomePage, &CMainWindow::onUiHomePage},
        {m_ui->actionHelp_SupportEmail, &CMainWindow::onUiSupportEmail},
        {m_ui->actionHelp_Donate, &CMainWindow::onUiDonate},
        {m_ui->actionHelp_About, &CMainWindow::onUiAbout},
        {m_ui->actionTools_KeyboardShortcuts, &CMainWindow::onUiShowKeyboardShortcuts},
        {m_ui->actionTools_Options, &CMainWindow::onUiShowOptions},
        {m_ui->actionFile_InputDir, &CMainWindow::onUiOpenInputDir},
        {m_ui->actionHash_copyHexHash, &CMainWindow::onUiCopyHashAsHex},
        {m_ui->actionHash_copyBase64Hash, &CMainWindow::onUiCopyHashAsBase64},
        {m_ui->actionHash_selectAlgorithm, &CMainWindow::onUiSelectHashAlgorithm},
        {m_ui->actionTools_showHideToolbar, &CMainWindow::onUiShowHideToolbar},
    };
    for (const auto& [action, slot] : rows)
        connect(action, &QAction::triggered, this, slot);
}

void CMainWindow::connectInputs()
{
    connect(m_ui->lineEditInput, &QLineEdit::textChanged, this, &CMainWindow::onUiInputFileNameChanged);
    connect(m_ui->buttonDefineInputFile, &QPushButton::clicked, this, &CMainWindow::onUiSetInputFile);
    connect(m_ui->buttonGotoInputDir, &QPushButton::clicked, this, &CMainWindow::onUiOpenInputDir);
    connect(m_ui->buttonCopyHashHex, &QPushButton::clicked, this, &CMainWindow::onUiCopyHashAsHex);
    connect(m_ui->buttonCopyHashBase64, &QPushButton::clicked, this, &CMainWindow::onUiCopyHashAsBase64);
}

void CMainWindow::connectWorker()
{
    connect(m_msgDispatcher, &CMsgDispatcher::notifyHashCalculationStarted, this,
            &CMainWindow::onUiHashCalculationStarted);
    connect(m_msgDispatcher, &CMsgDispatcher::notifyHashCalculationFinished, this,
            &CMainWindow::onUiHashCalculationFinished);
    connect(m_msgDispatcher, &CMsgDispatcher::notifyHashCalculationProgress, this,
            &CMainWindow::onUiHashCalculationProgressChanged);
}

void CMainWindow::setCommandLine(const QStringList& arguments)
{
    m_commandLine = arguments;
}

void CMainWindow::clearCommandLine()
{
    QStringList().swap(m_commandLine);
}

void CMainWindow::showEvent(QShowEvent* /*event*/)
{
    if (!m_firstShow.exchange(false))
        return;
    logger::log(logger::ELogLevel::Debug, "mainwindow", [](auto& record) { record << "Start ..."; });
    setWindowTitle(getProductTitle());
    m_hashAlgFrame->setCurrentAlgorithm(crypto::kDefaultHashAlg);
    m_taskbarProgress = std::make_unique<quillon::platform::TaskbarProgress>(winId());
    m_hashAlgFrame->setCurrentAlgorithm(storedDefaultAlgorithm());
    integrateShellContextMenu();
    integrateSendToMenu();
    processCommandLine(m_commandLine);
    clearCommandLine();
}

void CMainWindow::closeEvent(QCloseEvent* /*event*/)
{
    logger::log(logger::ELogLevel::Debug, "mainwindow", [](auto& record) { record << "Finish ..."; });
}

void CMainWindow::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    if (control && !alt) {
        if (event->key() == Qt::Key_O || event->key() == Qt::Key_N)
            onUiSetInputFile();
        else if (event->key() == Qt::Key_F9)
            onUiOpenInputDir();
    } else if (!control && !alt) {
        if (event->key() == Qt::Key_F5)
            onUiStartHashCalculation();
        else if (event->key() == Qt::Key_F8)
            onUiStopHashCalculation();
    }
}

bool CMainWindow::getDefaultHashAlgorithm(std::uint32_t& library, std::uint32_t& algorithm) const
{
    const std::optional<SHashAlgId> stored = thisapp::readDefaultHashAlgorithm();
    if (stored) {
        library = stored->lib;
        algorithm = stored->alg;
    }
    return stored.has_value();
}

/// The built-in default where none is stored, or one that this program does not have.
SHashAlgId CMainWindow::storedDefaultAlgorithm() const
{
    SHashAlgId stored;
    const bool isUsable = getDefaultHashAlgorithm(stored.lib, stored.alg) && isAlgorithmKnown(stored);
    return isUsable ? stored : crypto::kDefaultHashAlg;
}

/// The first row of the catalogue with this algorithm, whatever its library.
void CMainWindow::selectAlgorithm(std::uint32_t algorithmId)
{
    const std::vector<SHashAlgInfo> rows = m_hashAlgs.get();
    const auto row =
        std::ranges::find(rows, algorithmId, [](const SHashAlgInfo& info) { return info.id.alg; });
    if (row != rows.end() && isAlgorithmKnown(row->id))
        m_hashAlgFrame->setCurrentAlgorithm(row->id);
}

void CMainWindow::processCommandLine(const QStringList& arguments)
{
    if (arguments.isEmpty())
        return;
    logger::log(logger::ELogLevel::Information, "mainwindow", [&arguments](auto& record) {
        record << "Try to process command line: "
               << ('"' + arguments.join(QStringLiteral("\" \"")) + '"').toStdString();
    });
    const thisapp::CommandLine asked = thisapp::parseCommandLine(arguments);
    if (asked.algorithmId != 0)
        selectAlgorithm(asked.algorithmId);
    if (asked.file.isEmpty())
        return;
    m_ui->lineEditInput->setText(asked.file);
    onUiInputFileNameChanged();
    if (asked.start)
        onUiStartHashCalculation();
}

std::uint32_t CMainWindow::getProductId() const
{
    return vars::kProductId;
}

std::uint32_t CMainWindow::getProductFlavour() const
{
    return vars::kProductFlavour;
}

void CMainWindow::getProductVersion(std::uint32_t& major, std::uint32_t& minor, std::uint32_t& patch,
                                    std::uint32_t& build) const
{
    major = vars::kVersionMajor;
    minor = vars::kVersionMinor;
    patch = vars::kVersionPatch;
    build = vars::kVersionBuild;
}

std::int32_t CMainWindow::getAlgorithmCount() const
{
    const std::lock_guard guard(m_hashAlgs);
    return static_cast<std::int32_t>(m_hashAlgs.value.size());
}

bool CMainWindow::getAlgorithm(std::int32_t index, SHashAlgId& id) const
{
    const std::lock_guard guard(m_hashAlgs);
    if (index < 0 || static_cast<std::size_t>(index) >= m_hashAlgs.value.size())
        return false;
    id = m_hashAlgs.value[static_cast<std::size_t>(index)].id;
    return true;
}

std::string CMainWindow::getAlgorithmName(const SHashAlgId& id) const
{
    const std::lock_guard guard(m_hashAlgs);
    return std::string(crypto::getHashAlgName(id.alg));
}

bool CMainWindow::isAlgorithmKnown(const SHashAlgId& id) const
{
    const std::lock_guard guard(m_hashAlgs);
    return std::ranges::any_of(m_hashAlgs.value, [&id](const auto& row) { return row.id == id; });
}

void CMainWindow::onUiSelectHashAlgorithm()
{
    CSelectAlgorithmDialog dialog(this);
    dialog.setHashAlgProvider(this);
    dialog.setCurrentAlgorithm(storedDefaultAlgorithm());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const SHashAlgId chosen = dialog.getCurrentAlgorithm();
    if (chosen.lib == 0 || chosen.alg == 0 || !isAlgorithmKnown(chosen))
        return;
    if (dialog.isSetAsDefault())
        thisapp::writeDefaultHashAlgorithm(chosen);
    m_hashAlgFrame->setCurrentAlgorithm(chosen);
}

void CMainWindow::onUiExit()
{
    close();
}

void CMainWindow::onUiHomePage()
{
    QDesktopServices::openUrl(QUrl(QString::fromUtf8(vars::kHomePageUrl)));
}

void CMainWindow::onUiDonate()
{
    QDesktopServices::openUrl(QUrl(QString::fromUtf8(vars::kDonationUrl)));
}

void CMainWindow::onUiSupportEmail()
{
    QDesktopServices::openUrl(QUrl(QStringLiteral("mailto:") + QString::fromUtf8(vars::kSupportEmail) +
                                   QStringLiteral("?subject=") + getProductTitle()));
}

void CMainWindow::onUiShowHideToolbar()
{
    // The click has flipped the check mark already; between a stop and the next start it is flipped back.
    if (!m_stopRequested.get())
        m_ui->toolBar->setVisible(m_ui->toolBar->isHidden());
    m_ui->actionTools_showHideToolbar->setChecked(!m_ui->toolBar->isHidden());
}
