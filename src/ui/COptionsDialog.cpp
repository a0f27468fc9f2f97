#include "ui/COptionsDialog.h"

#include "ui_COptionsDialog.h"

#include "crypto/DigestText.h"
#include "logger/LogLine.h"
#include "ui/AlgorithmList.h"
#include "ui/ProductLabels.h"
#include "ui/TextDirection.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QListWidget>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace i18n = quillon::i18n;
namespace logger = quillon::logger;

namespace {

constexpr std::int32_t kFontSize = 8;
constexpr int kKeyColumnWidth = 150;
constexpr int kDescriptionColumnWidth = 400;
constexpr int kLeastRowHeight = 25;
constexpr int kRowPadding = 6;

/// The row with this item data; the current row stays where there is none.
void selectRowByData(QComboBox& combo, const QVariant& data)
{
    if (const int row = combo.findData(data); row >= 0)
        combo.setCurrentIndex(row);
}

} // namespace

COptionsDialog::COptionsDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui_COptionsDialog>())
{
    m_ui->setupUi(this);
    keepButtonTextsCentred(*this);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    m_ui->labelAppIcon->setPixmap(windowIcon().pixmap(m_ui->labelAppIcon->maximumSize()));
    m_textPalette = m_ui->lineEditNetworkLogs->palette();
    orientTexts();
    createLists();
    connectControls();
    connectJobs();
}

COptionsDialog::~COptionsDialog()
{
    closeJobs();
}

/// What the dialog shows where its owner sets nothing, which differs from the record's own defaults.
thisapp::SAppOptions COptionsDialog::initialOptions()
{
    thisapp::SAppOptions options;
    options.useDefaultAlg = false;
    options.logLevel = static_cast<std::int32_t>(logger::ELogLevel::Off);
    options.fontSize = kFontSize;
    return options;
}

/// Paths, addresses and what is typed for them are read from left to right in every language.
void COptionsDialog::orientTexts()
{
    for (QLineEdit* edit : {m_ui->lineEditLogFile, m_ui->lineEditProxyAddress, m_ui->lineEditProxyPort,
                            m_ui->lineEditProxyLogin, m_ui->lineEditProxyPassword})
        edit->setLayoutDirection(Qt::LeftToRight);
}

void COptionsDialog::createLists()
{
    // A list widget's rows are easier to fill than a bare model's; the combo box shows and then owns it.
    m_defaultAlgs = new QListWidget(this);
    m_ui->comboBoxDefaultAlg->setModel(m_defaultAlgs->model());
    m_ui->comboBoxDefaultAlg->setView(m_defaultAlgs);
    // Styles whose combo boxes open like a menu switch this off, but a list of limited height needs it.
    m_defaultAlgs->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    for (const logger::LogLevelName& level : logger::logLevelNames)
        m_ui->comboBoxLogLevel->addItem(QString::fromLatin1(level.longName), static_cast<int>(level.id));
    fitShortcutTable();
}

/// All rows are seen, and whole, in any language and at any size of the font.
void COptionsDialog::fitShortcutTable()
{
    QTableWidget& table = *m_ui->tableWidgetShortcutKeys;
    int width = 0;
    for (const auto& [column, leastWidth] : {std::pair{0, kKeyColumnWidth}, {1, kDescriptionColumnWidth}}) {
        table.resizeColumnToContents(column);
        table.setColumnWidth(column, std::max(leastWidth, table.columnWidth(column)));
        width += table.columnWidth(column);
    }
    table.setFixedWidth(width);
    const int rowHeight = std::max(kLeastRowHeight, table.fontMetrics().height() + kRowPadding);
    table.verticalHeader()->setDefaultSectionSize(rowHeight);
    table.setFixedHeight(rowHeight * table.rowCount());
}

void COptionsDialog::connectControls()
{
    const auto indexChanged = qOverload<int>(&QComboBox::currentIndexChanged);
    connect(m_ui->labelEmailUrl, &QLabel::linkActivated, this, &COptionsDialog::onUiSupportEmailClicked);
    connect(m_ui->buttonApply, &QPushButton::clicked, this, &COptionsDialog::onUiApply);
    connect(m_ui->buttonOk, &QPushButton::clicked, this, &COptionsDialog::onUiOk);
    connect(m_ui->buttonCancel, &QPushButton::clicked, this, &COptionsDialog::onUiCancel);
    connect(m_ui->comboBoxLanguage, indexChanged, this, &COptionsDialog::onUiLanguageChanged);
    connect(m_ui->comboBoxProxyConfigType, indexChanged, this, &COptionsDialog::onUiProxySelectTypeChanged);
    connect(m_ui->labelViewLogFile, &QLabel::linkActivated, this, &COptionsDialog::onUiViewLogFileClicked);
    connect(m_ui->buttonCheckConnection, &QPushButton::clicked, this,
            &COptionsDialog::onUiCheckNetworkConnection);
    connect(m_ui->buttonSystemProxySettings, &QPushButton::clicked, this,
            &COptionsDialog::onUiShowSystemProxySettings);
}

void COptionsDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_firstShow.exchange(false))
        return;
    fillAbout();
    fillDefaultAlgorithm();
    fillCheckBoxes();
    fillAutocopy();
    fillLogging();
    if (m_ui->tableWidgetShortcutKeys->rowCount() > 1)
        m_ui->tableWidgetShortcutKeys->selectRow(1);
    enableAdvanced();
    fillLanguages();
    fillProxy();
    updateProxyControls();
    fitNetworkButtons();
    m_ui->labelViewLogFile->setText(makeLinkLabelText(tr("View log file"), QStringLiteral("#")));
    selectLinkOnFocus(*m_ui->labelViewLogFile);
}

void COptionsDialog::fillAbout()
{
    const QString name = QCoreApplication::applicationName();
    fillProductLabels(*m_ui);
    m_ui->labelHomePage->setText(tr("%1 home page:").arg(name));
    m_ui->labelDonate->setText(tr("Donate to the %1:").arg(name));
}

void COptionsDialog::fillDefaultAlgorithm()
{
    fillAlgorithmList(m_algProvider, m_defaultAlgs, true);
    if (const int row = findAlgorithmRow(*m_defaultAlgs, m_options.defaultAlg); row >= 0)
        m_ui->comboBoxDefaultAlg->setCurrentIndex(row);
}

void COptionsDialog::fillCheckBoxes()
{
    m_ui->checkBoxIntergaretToContextMenu->setChecked(m_options.shellContextMenu);
    m_ui->checkBoxAddSendTo->setChecked(m_options.sendToLink);
    m_ui->checkBoxSetDefaultAlg->setChecked(m_options.useDefaultAlg);
}

void COptionsDialog::fillAutocopy()
{
    if (m_options.whatCopy <= thisapp::kCopyNothing)
        m_ui->radioButtonAutocopyNothing->setChecked(true);
    else if (m_options.whatCopy == thisapp::kCopyHex)
        m_ui->radioButtonAutocopyHex->setChecked(true);
    else if (m_options.whatCopy == thisapp::kCopyBase64)
        m_ui->radioButtonAutocopyBase64->setChecked(true);
}

void COptionsDialog::fillLogging()
{
    selectRowByData(*m_ui->comboBoxLogLevel, m_options.logLevel);
    m_ui->checkBoxUseLogFile->setChecked(m_options.useLogFile);
    m_ui->lineEditLogFile->setText(m_logFilePath);
}

void COptionsDialog::enableAdvanced()
{
    for (QWidget* control : std::initializer_list<QWidget*>{m_ui->comboBoxLogLevel, m_ui->checkBoxUseLogFile,
                                                            m_ui->lineEditLogFile, m_ui->labelViewLogFile})
        control->setEnabled(true);
}

void COptionsDialog::fillLanguages()
{
    QComboBox& combo = *m_ui->comboBoxLanguage;
    combo.clear();
    if (m_translationList == nullptr)
        return;
    for (int index = 0; index < m_translationList->getTranslationCount(); ++index) {
        i18n::internal::Translation<char> entry;
        i18n::internal::Locale<char> locale;
        if (m_translationList->getTranslation(entry, index) &&
            i18n::findLocale(locale, entry.language, entry.country))
            combo.addItem(QString::fromStdString(entry.displayName), locale.id);
    }
    // No row stands for a language that the list no longer has.
    combo.setCurrentIndex(combo.findData(m_options.localeId));
}

void COptionsDialog::collectFromUi()
{
    m_options.shellContextMenu = m_ui->checkBoxIntergaretToContextMenu->isChecked();
    m_options.sendToLink = m_ui->checkBoxAddSendTo->isChecked();
    m_options.localeId = shownLocaleId();
    m_options.defaultAlg = parseAlgorithmItemData(m_ui->comboBoxDefaultAlg->currentData(Qt::UserRole));
    m_options.useDefaultAlg = m_ui->checkBoxSetDefaultAlg->isChecked();
    m_options.whatCopy = chosenWhatCopy();
    m_options.logLevel = static_cast<std::int32_t>(
        logger::logLevelFromNumber(m_ui->comboBoxLogLevel->currentData(Qt::UserRole).toInt()));
    m_options.useLogFile = m_ui->checkBoxUseLogFile->isChecked();
    m_options.proxySelectType = shownProxySelectType();
    m_options.netProxy = typedProxy();
}

/// The language that was set where the combo box shows none, and the default one where what it shows is not
/// in the catalogue.
std::uint32_t COptionsDialog::shownLocaleId() const
{
    if (m_ui->comboBoxLanguage->currentIndex() < 0)
        return m_options.localeId;
    i18n::internal::Locale<char> locale = i18n::getDefaultLocale();
    i18n::findLocale(locale, m_ui->comboBoxLanguage->currentData(Qt::UserRole).toUInt());
    return locale.id;
}

std::int32_t COptionsDialog::chosenWhatCopy() const
{
    if (m_ui->radioButtonAutocopyHex->isChecked())
        return thisapp::kCopyHex;
    return m_ui->radioButtonAutocopyBase64->isChecked() ? thisapp::kCopyBase64 : thisapp::kCopyNothing;
}

void COptionsDialog::onUiApply()
{
    if (m_optionsChanged == nullptr)
        return;
    collectFromUi();
    m_optionsChanged->onAppOptionsChanged(getAppOptions());
    // The language may be another one now. Labels that were filled at the first show fall back to the form's
    // own texts until the dialog is opened anew.
    m_ui->retranslateUi(this);
    fitNetworkButtons();
    fitShortcutTable();
}

void COptionsDialog::onUiOk()
{
    collectFromUi();
    accept();
}

void COptionsDialog::onUiCancel()
{
    i18n::internal::Locale<char> locale;
    if (m_localeCallback != nullptr && shownLocaleId() != m_options.localeId &&
        i18n::findLocale(locale, m_options.localeId))
        m_localeCallback->onLocaleChanged(locale.languageCode, locale.countryCode,
                                          static_cast<long>(locale.id));
    close();
}

// A language is not previewed: it changes when the options are applied.
void COptionsDialog::onUiLanguageChanged(int /*index*/) {}

void COptionsDialog::onUiSupportEmailClicked(const QString& /*strUrl*/)
{
    QDesktopServices::openUrl(QUrl(supportMailAddress()));
}

void COptionsDialog::onUiViewLogFileClicked(const QString& /*strUrl*/)
{
    if (m_logFilePath.isEmpty())
        return;
    const QDir folder = QFileInfo(m_logFilePath).absoluteDir();
    if (folder.exists())
        QDesktopServices::openUrl(QUrl::fromLocalFile(folder.absolutePath()));
}

void COptionsDialog::closeEvent(QCloseEvent* event)
{
    QDialog::closeEvent(event);
    closeJobs();
}

void COptionsDialog::done(int result)
{
    QDialog::done(result);
    closeJobs();
}
