#pragma once

#include "shellhelper/Export.h"

#include <cstdint>

/// The interface of QxShellHelper, the library that makes the program's entries in the desktop shell. Both
/// halves include this header: the library to define the functions, the program for their types, since it
/// binds all of them by name at run time and takes a library that lacks one for none.
///
/// Binary interface: C linkage and the platform's standard calling convention. A result is returned by value;
/// it has eight bytes and no constructor, so every compiler for a system hands it back in the same way. Texts
/// end with a zero, are only read, and belong to the caller; a null text gives {5, 5}.
///
/// Texts: the functions without suffix take narrow text, which is UTF-8 on Unix and in the process's code
/// page on Windows. The suffix W stands for wide text: UTF-16 on Windows, UTF-32 on Unix. T is the same as W
/// on every system.
///
/// Results: code 0 is success. Group 1 is a number of the operating system, errno on Unix and a Win32 error
/// (or else an HRESULT) on Windows; group 5 is one of the program's own codes. A function that does nothing
/// here answers {1, ENOSYS}, on Windows {1, ERROR_CALL_NOT_IMPLEMENTED}.
///
/// Threads: any, but no two calls at a time. Nothing is kept between calls; all state is in the shell.
extern "C" {

struct QxShellResult
{
    std::uint32_t group;
    std::uint32_t code;
};

/// Does nothing here.
QXSHELL_EXPORT QxShellResult qxshell_resolveShellError() noexcept;

/// Do nothing here: how much of a folder is to go is not agreed, and a library must not guess at that.
QXSHELL_EXPORT QxShellResult qxshell_deleteDir(const char* path) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_deleteDirT(const wchar_t* path) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_deleteDirW(const wchar_t* path) noexcept;

/// The context menu of the current user's files. `fileType` is a class of the shell: "*" for all files,
/// "Directory" for folders. `id` names the entry, so that there is at most one of a file type and an id; it
/// becomes part of file names, so it must not be empty or hold a slash, a backslash or a control character.
/// `menuText` is what the user sees, and no more than that: entries are found by `fileType` and `id` alone.
///
/// `exists` succeeds where an entry stands, else it gives the system's number for a missing file.
///
/// `create` makes the entry or replaces it. What is right already is not written again. `command` is the
/// command line that the shell runs, where %L stands for the full path of the selected item:
/// - On Windows the shell reads it, and it goes there as it is.
/// - On Unix it is not run but taken apart: it is two words, the program's full path and %L. In double quotes
/// a
///   blank is part of the word and a backslash takes the next character as it is; %% is one percent sign.
///   Every other form gives {1, EINVAL}, and a program whose path is no UTF-8 {1, EILSEQ}. The only file type
///   is "*"; another one gives {1, ENOSYS}.
/// Where nobody would show the entry, as on a desktop without a file manager that has one, the result is
/// {1, ENOENT}. Otherwise the first failure is told, and all other places are written none the less.
///
/// `remove` takes the entry away and puts back what stood before. No entry at all is success.
QXSHELL_EXPORT QxShellResult qxshell_existsShellContextMenuForUser(const char* fileType, const char* menuText,
                                                                   const char* id) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_createShellContextMenuForUser(const char* fileType, const char* menuText,
                                                                   const char* command,
                                                                   const char* id) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_removeShellContextMenuForUser(const char* fileType, const char* menuText,
                                                                   const char* id) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_existsShellContextMenuForUserT(const wchar_t* fileType,
                                                                    const wchar_t* menuText,
                                                                    const wchar_t* id) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_createShellContextMenuForUserT(const wchar_t* fileType,
                                                                    const wchar_t* menuText,
                                                                    const wchar_t* command,
                                                                    const wchar_t* id) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_removeShellContextMenuForUserT(const wchar_t* fileType,
                                                                    const wchar_t* menuText,
                                                                    const wchar_t* id) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_existsShellContextMenuForUserW(const wchar_t* fileType,
                                                                    const wchar_t* menuText,
                                                                    const wchar_t* id) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_createShellContextMenuForUserW(const wchar_t* fileType,
                                                                    const wchar_t* menuText,
                                                                    const wchar_t* command,
                                                                    const wchar_t* id) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_removeShellContextMenuForUserW(const wchar_t* fileType,
                                                                    const wchar_t* menuText,
                                                                    const wchar_t* id) noexcept;

/// Shows the folder that holds the item at the full path `path`, with the item selected. Does nothing on
/// Unix.
QXSHELL_EXPORT QxShellResult qxshell_openDirAndSelectItem(const char* path) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_openDirAndSelectItemT(const wchar_t* path) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_openDirAndSelectItemW(const wchar_t* path) noexcept;

/// Shows the folder at the full path `path` in the desktop's file manager, and does not wait for it.
/// Something else than a folder is not opened and gives the system's number.
QXSHELL_EXPORT QxShellResult qxshell_openDir(const char* path) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_openDirT(const wchar_t* path) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_openDirW(const wchar_t* path) noexcept;

/// Makes or replaces the shortcut at the full path `linkPath`, which starts the program at the full path
/// `target`. On Windows it is a link file. On Unix it is a desktop entry with the name `description`, which
/// starts the program with one file; its folder is made only where Thunar, which reads it, is installed, else
/// a missing folder gives {1, ENOENT}.
QXSHELL_EXPORT QxShellResult qxshell_createShellLink(const char* target, const char* description,
                                                     const char* linkPath) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_createShellLinkT(const wchar_t* target, const wchar_t* description,
                                                      const wchar_t* linkPath) noexcept;
QXSHELL_EXPORT QxShellResult qxshell_createShellLinkW(const wchar_t* target, const wchar_t* description,
                                                      const wchar_t* linkPath) noexcept;

} // extern "C"
