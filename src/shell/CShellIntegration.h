#pragma once

#include "err/ResultCode.h"
#include "shell/ShellLibrary.h"

#include <QString>

#include <string>

/// Offers the program in the desktop's shell: in the context menu of files, and in the Send To menu. The
/// library that makes the entries is optional; without it nothing is made, and of all that is removed here
/// only the Send To link goes. What was made outlasts the program.
///
/// Belongs to the thread of the user interface. Failures are told and meant to be dropped: no error here is
/// worth a word to the user.
class CShellIntegration
{
public:
    /// Takes the menu's text in the present language, and loads the library from the program's folder.
    void init();

    /// Loads the library from `folder`, which is {5, 5} where it is null, and nothing once it is loaded.
    /// Where it is missing or lacks a function the result is {1, number of the system}.
    quillon::err::ResultCode load(const wchar_t* folder);

    /// The menu entry's text in the language that `init` or `renewContextMenu` met, and in English.
    [[nodiscard]] std::wstring menuTextNow() const;
    [[nodiscard]] std::wstring englishMenuText() const;

    /// Without the library {5, 90}, for a program whose name is no UTF-8 {5, 5}; the text counts as the last
    /// one created all the same.
    quillon::err::ResultCode createContextMenu();

    /// Takes away the entries under both texts, for files and for folders. Always succeeds.
    quillon::err::ResultCode removeContextMenu();

    /// After a change of language: the entry under the old text goes and one under the new text comes, also
    /// where the user wants none; the next start puts that right.
    void renewContextMenu();

    /// A link that stands is left alone. Without the library {5, 90}, without a place for it {5, 1300}.
    quillon::err::ResultCode createSendToLink();

    /// No link, or a folder in its place, is success; without a place for it {5, 1300}.
    quillon::err::ResultCode removeSendToLink();

private:
    void removeEntries(const std::wstring& menuText);

    std::string m_programPath; ///< UTF-8
    std::wstring m_menuText;   ///< as last created
    QString m_menuTemplate;
    ShellLibrary m_shellLibrary;
};
