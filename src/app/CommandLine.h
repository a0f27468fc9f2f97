#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <string>

namespace thisapp {

/// The file that a user's text names: the text as it stands where there is such a file, as names may begin
/// and end with blanks; else without them.
[[nodiscard]] QString fileNameFrom(const QString& text);

/// What the arguments of a start ask for.
struct CommandLine
{
    QString file;                  ///< as fileNameFrom makes it; empty where none was given
    std::uint32_t algorithmId = 0; ///< an id of the algorithm catalogue; 0 where none was named
    bool start = false;            ///< the run starts at once
};

/// Reads an argument list (without the program's name). A lone argument is the file, and only if it exists.
/// More of them are keys behind "-" or "/", in any case: "ifile" with a file, "a", "alg" or "algorithm" with
/// the name of an algorithm, and "start". A value never begins with "-" or "/"; what is not understood is
/// skipped; later keys win.
[[nodiscard]] CommandLine parseCommandLine(const QStringList& arguments);

} // namespace thisapp
