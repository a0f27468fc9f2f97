#pragma once

#include "shellhelper/Export.h"

#include <cstdint>

/// The interface of QxShellHelper, the library that makes the program's entries in the desktop shell. Both
/// halves include this header: the library to define the functions, the program for their types, since it
/// binds all of them by name at run time and takes a library that lacks one for none.
///
/// Names: each function is called qxshell_, its family and its suffix. QXSHELL_FUNCTIONS is the one list of
/// them; all who declare, define or bind them go through it.
///
/// Binary interface: C linkage and the platform's standard calling convention. A result is returned by value;
/// it has eight bytes and no constructor, so every compiler for a system hands it back in the same way. All
/// parameters are texts, which end with a zero, are only read, and belong to the caller; a null text gives
/// {5, 5}.
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

// What follows are the parameters of each family, each by way of the macro Text.

/// Does nothing here.
#define QXSHELL_resolveShellError(Text)

/// Does nothing here: how much of a folder is to go is not agreed, and a library must not guess at that.
#define QXSHELL_deleteDir(Text) Text(path)

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
///   a blank is part of the word and a backslash takes the next character as it is; %% is one percent sign.
///   Every other form gives {1, EINVAL}, and a program whose path is no UTF-8 {1, EILSEQ}. The only file type
///   is "*"; another one gives {1, ENOSYS}.
/// Where nobody would show the entry, as on a desktop without a file manager that has one, the result is
/// {1, ENOENT}. Otherwise the first failure is told, and all other places are written none the less.
///
/// `remove` takes the entry away and puts back what stood before. No entry at all is success.
#define QXSHELL_existsShellContextMenuForUser(Text) Text(fileType), Text(menuText), Text(id)
#define QXSHELL_createShellContextMenuForUser(Text) Text(fileType), Text(menuText), Text(command), Text(id)
#define QXSHELL_removeShellContextMenuForUser(Text) Text(fileType), Text(menuText), Text(id)

/// Shows the folder that holds the item at the full path `path`, with the item selected. Does nothing on
/// Unix.
#define QXSHELL_openDirAndSelectItem(Text) Text(path)

/// Shows the folder at the full path `path` in the desktop's file manager, and does not wait for it.
/// Something else than a folder is not opened and gives the system's number.
#define QXSHELL_openDir(Text) Text(path)

/// Makes or replaces the shortcut at the full path `linkPath`, which starts the program at the full path
/// `target`. On Windows it is a link file. On Unix it is a desktop entry with the name `description`, which
/// starts the program with one file; its folder is made only where Thunar, which reads it, is installed, else
/// a missing folder gives {1, ENOENT}.
#define QXSHELL_createShellLink(Text) Text(target), Text(description), Text(linkPath)

// What a macro for the families takes as Text: two kinds of parameters, and the argument of either.
#define QXSHELL_NARROW(name) const char* name
#define QXSHELL_WIDE(name) const wchar_t* name
#define QXSHELL_NAME(name) name

/// All functions in the order in which they are bound, each as X(family, suffix, its kind of parameters).
#define QXSHELL_FUNCTIONS(X)                                                                                 \
    X(resolveShellError, , QXSHELL_NARROW)                                                                   \
    X(deleteDir, , QXSHELL_NARROW)                                                                           \
    X(deleteDir, T, QXSHELL_WIDE)                                                                            \
    X(deleteDir, W, QXSHELL_WIDE)                                                                            \
    X(existsShellContextMenuForUser, , QXSHELL_NARROW)                                                       \
    X(createShellContextMenuForUser, , QXSHELL_NARROW)                                                       \
    X(removeShellContextMenuForUser, , QXSHELL_NARROW)                                                       \
    X(existsShellContextMenuForUser, T, QXSHELL_WIDE)                                                        \
    X(createShellContextMenuForUser, T, QXSHELL_WIDE)                                                        \
    X(removeShellContextMenuForUser, T, QXSHELL_WIDE)                                                        \
    X(existsShellContextMenuForUser, W, QXSHELL_WIDE)                                                        \
    X(createShellContextMenuForUser, W, QXSHELL_WIDE)                                                        \
    X(removeShellContextMenuForUser, W, QXSHELL_WIDE)                                                        \
    X(openDirAndSelectItem, , QXSHELL_NARROW)                                                                \
    X(openDirAndSelectItem, T, QXSHELL_WIDE)                                                                 \
    X(openDirAndSelectItem, W, QXSHELL_WIDE)                                                                 \
    X(openDir, , QXSHELL_NARROW)                                                                             \
    X(openDir, T, QXSHELL_WIDE)                                                                              \
    X(openDir, W, QXSHELL_WIDE)                                                                              \
    X(createShellLink, , QXSHELL_NARROW)                                                                     \
    X(createShellLink, T, QXSHELL_WIDE)                                                                      \
    X(createShellLink, W, QXSHELL_WIDE)

#define QXSHELL_DECLARE(family, suffix, Text)                                                                \
    QXSHELL_EXPORT QxShellResult qxshell_##family##suffix(QXSHELL_##family(Text)) noexcept;
QXSHELL_FUNCTIONS(QXSHELL_DECLARE)
#undef QXSHELL_DECLARE

} // extern "C"
