#include "ui_CMainWindow.h"

#include "app/CMainWindow.h"
#include "app/StartLanguage.h"
#include "crypto/cipher/SettingCipher.h"
#include "logger/Log.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"
#include "text/AsciiText.h"
#include "ui/CAboutDialog.h"
#include "ui/COptionsDialog.h"
#include "ui/CSelectAlgFrame.h"
#include "ui/CkeyboardShortcutInfoDialog.h"

#include <optional>
#include <string>

namespace crypto = quillon::crypto;
namespace i18n = quillon::i18n;
namespace logger = quillon::logger;
namespace settings = thisapp::settings;
using thisapp::SAppOptions;

namespace {

using SettingFilter = std::optional<std::string> (*)(std::string_view);

/// Sends the value of the one enciphered setting through `filter`.
bool filterPassword(const char* key, const QVariant& value, QVariant* filtered, SettingFilter filter)
{
    const std::string name = settings::NetProxyPassword.key.toStdString();
    if (!quillon::text::equalsIgnoringAsciiCase(key, name) || !value.isValid() || value.toString().isEmpty())
        return false;
    const std::optional<std::string> result = filter(value.toString().toStdString());
    if (!result)
        return false;
    *filtered = QString::fromStdString(*result);
    return true;
}

} // namespace

bool CMainWindow::decodeSettingValue(const char* key, const QVariant& stored, QVariant* plain) const
{
    return filterPassword(key, stored, plain, crypto::decipherSetting);
}

bool CMainWindow::encodeSettingValue(const char* key, const QVariant& plain, QVariant* stored) const
{
    return filterPassword(key, plain, stored, crypto::encipherSetting);
}

void CMainWindow::onUiAbout()
{
    CAboutDialog(this).exec();
}

void CMainWindow::onUiShowKeyboardShortcuts()
{
    CkeyboardShortcutInfoDialog(this).exec();
}

void CMainWindow::onUiShowOptions()
{
    COptionsDialog dialog(this);
    dialog.setLocaleCallback(this);
    dialog.setAlgProvider(this);
    dialog.setOptionsChanged(this);
    fillOptionsDialog(dialog);
    if (dialog.exec() == QDialog::Accepted)
        onAppOptionsChanged(dialog.getAppOptions());
}

void CMainWindow::fillOptionsDialog(COptionsDialog& dialog)
{
    const CAppSettings store;
    dialog.setShellContextMenu(settings::IntegrateToShellContextMenu.read(store));
    dialog.setSendToLink(settings::AddToSendMenu.read(store));
    dialog.setLocaleId(storedLocale().id);
    dialog.setDefaultAlg(storedDefaultAlgorithm());
    dialog.setUseDefaultAlg(settings::UseDefaultAlgorithmAtStarting.read(store));
    dialog.setWhatCopy(settings::WhatCopyToClipboard.read(store));
    dialog.setLogLevel(settings::LogLevel.read(store));
    dialog.setUseLogFile(settings::UseLogFile.read(store));
    dialog.setLogFilePath(getLogFilePath());
    dialog.setTranslationList(this);
    loadNetProxy();
    dialog.setNetProxy(getNetProxy());
    dialog.setProxySelectType(getProxySelectType());
}

void CMainWindow::onAppOptionsChanged(const SAppOptions& options)
{
    const bool shellChanged = storeOptions(options);
    if (options.defaultAlg.lib != 0 && options.defaultAlg.alg != 0 && isAlgorithmKnown(options.defaultAlg)) {
        thisapp::writeDefaultHashAlgorithm(options.defaultAlg);
        m_hashAlgFrame->setCurrentAlgorithm(options.defaultAlg);
    }
    logger::getLogSender()->setLevel(logger::logLevelFromNumber(options.logLevel));
    setFileLoggerEnabled(options.useLogFile);
    applyLanguage(options.localeId);
    setNetProxy(options.netProxy);
    setProxySelectType(options.proxySelectType);
    saveNetProxy();
    if (shellChanged)
        integrateShellContextMenu();
}

/// Writes what needs no check; true where a setting of the desktop integration differs from before.
bool CMainWindow::storeOptions(const SAppOptions& options)
{
    CAppSettings store;
    const bool shellChanged = settings::IntegrateToShellContextMenu.read(store) != options.shellContextMenu ||
                              settings::AddToSendMenu.read(store) != options.sendToLink;
    settings::IntegrateToShellContextMenu.write(store, options.shellContextMenu);
    settings::AddToSendMenu.write(store, options.sendToLink);
    settings::UseDefaultAlgorithmAtStarting.write(store, options.useDefaultAlg);
    settings::WhatCopyToClipboard.write(store, options.whatCopy);
    settings::LogLevel.write(store, options.logLevel);
    settings::UseLogFile.write(store, options.useLogFile);
    return shellChanged;
}

void CMainWindow::applyLanguage(std::uint32_t localeId)
{
    CAppSettings store;
    if (settings::LocaleId.read(store) == localeId)
        return;
    i18n::internal::Locale<char> locale;
    if (!i18n::findLocale(locale, localeId) || !loadLocale(locale))
        return;
    settings::LocaleId.write(store, localeId);
    retranslate();
    m_hashAlgFrame->retranslateFrame();
    m_shellIntegration.renewContextMenu();
    updateInputFileDetails();
    setWindowTitle(getProductTitle());
}

/// Sets the form's texts again, and above them those that tell of the run on screen.
void CMainWindow::retranslate()
{
    m_ui->retranslateUi(this);
    turnForm();
    nameCompareAction();
    updateResultCaption();
}

void CMainWindow::integrateShellContextMenu()
{
    const bool isWanted = settings::IntegrateToShellContextMenu.read(CAppSettings());
    static_cast<void>(m_shellIntegration.removeContextMenu());
    if (isWanted)
        static_cast<void>(m_shellIntegration.createContextMenu());
}

void CMainWindow::integrateSendToMenu()
{
    const bool isWanted = settings::AddToSendMenu.read(CAppSettings());
    static_cast<void>(m_shellIntegration.removeSendToLink());
    if (isWanted)
        static_cast<void>(m_shellIntegration.createSendToLink());
}
