#include "shell/CShellIntegration.h"

#include "err/ResultCode.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/RuntimeLibrary.h"
#include "platform/qt/UserPlaces.h"
#include "text/Unicode.h"
#include "vars/Product.h"

#include <QObject>

#include <filesystem>

using namespace quillon;

namespace {

constexpr const wchar_t* kAllFiles = L"*";
constexpr const wchar_t* kFolders = L"Directory";

err::ResultCode toResultCode(const QxShellResult& result)
{
    return {result.group, result.code};
}

QString translatedTemplate()
{
    return QObject::tr("Send To %1");
}

std::filesystem::path pathFromUtf8(const std::string& text)
{
    return std::u8string(text.begin(), text.end());
}

std::string libraryPath(const std::wstring& folder)
{
    const std::filesystem::path path =
        pathFromUtf8(text::utf8FromWide(folder)) / platform::runtimeLibraryFileName("QxShellHelper");
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

std::wstring linkPath()
{
    return platform::sendToLinkPath(vars::kProductName, vars::kProductGuid).toStdWString();
}

} // namespace

void CShellIntegration::init()
{
    m_menuTemplate = translatedTemplate();
    // Taken once: a program that is replaced while it runs has another name afterwards.
    m_programPath = platform::programPath();
    const std::u8string folder = pathFromUtf8(m_programPath).parent_path().u8string();
    // Without a folder the system would look for the library in its own places.
    if (!folder.empty())
        static_cast<void>(load(text::wideFromUtf8(std::string(folder.begin(), folder.end())).c_str()));
}

err::ResultCode CShellIntegration::load(const wchar_t* folder)
{
    if (folder == nullptr)
        return err::programError(err::kInvalidArgument);
    return m_shellLibrary.isLoaded() ? err::ResultCode{}
                                     : loadShellLibrary(libraryPath(folder), m_shellLibrary);
}

std::wstring CShellIntegration::menuTextNow() const
{
    return m_menuTemplate.arg(QString(vars::kProductName), 0, QLatin1Char(' ')).toStdWString();
}

std::wstring CShellIntegration::englishMenuText() const
{
    return text::wideFromUtf8(std::string("Send To ") + vars::kProductName);
}

err::ResultCode CShellIntegration::createContextMenu()
{
    const std::wstring command = platform::shellFileCommand(m_programPath);
    m_menuText = menuTextNow();
    if (!m_shellLibrary.isLoaded())
        return err::programError(err::kLibraryNotLoaded);
    // Entries are UTF-8, so that a program with another kind of name cannot stand in them.
    if (!text::isUtf8(m_programPath))
        return err::programError(err::kInvalidArgument);
    return toResultCode(m_shellLibrary.createShellContextMenuForUserT(
        kAllFiles, m_menuText.c_str(), command.c_str(), text::wideFromUtf8(vars::kProductGuid).c_str()));
}

err::ResultCode CShellIntegration::removeContextMenu()
{
    removeEntries(menuTextNow());
    return {};
}

void CShellIntegration::renewContextMenu()
{
    if (!m_menuText.empty())
        removeEntries(m_menuText);
    m_menuTemplate = translatedTemplate();
    static_cast<void>(createContextMenu());
}

/// Takes away the entries under `menuText` and under the English text. Results are dropped, as three of the
/// four are never there.
void CShellIntegration::removeEntries(const std::wstring& menuText)
{
    if (!m_shellLibrary.isLoaded())
        return;
    const std::wstring id = text::wideFromUtf8(vars::kProductGuid);
    for (const wchar_t* fileType : {kFolders, kAllFiles}) {
        for (const std::wstring& name : {menuText, englishMenuText()})
            m_shellLibrary.removeShellContextMenuForUserT(fileType, name.c_str(), id.c_str());
    }
}

err::ResultCode CShellIntegration::createSendToLink()
{
    const std::wstring link = linkPath();
    if (link.empty())
        return err::programError(err::kLinkPathUnknown);
    if (platform::isFileThere(link))
        return {};
    if (!m_shellLibrary.isLoaded())
        return err::programError(err::kLibraryNotLoaded);
    if (!text::isUtf8(m_programPath))
        return err::programError(err::kInvalidArgument);
    const std::wstring program = text::wideFromUtf8(m_programPath);
    return toResultCode(m_shellLibrary.createShellLinkW(
        program.c_str(), text::wideFromUtf8(vars::kProductName).c_str(), link.c_str()));
}

err::ResultCode CShellIntegration::removeSendToLink()
{
    const std::wstring link = linkPath();
    if (link.empty())
        return err::programError(err::kLinkPathUnknown);
    return platform::isFileThere(link) ? platform::removeFile(link) : err::ResultCode{};
}
