#pragma once

#include "logger/LogLine.h"
#include "platform/Files.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quillon::logger::internal {

/// Replaces `out` by the text of `line` as it stands in a log file, without a line feed at its end:
///
///     [2026.11.14 11:17:12:123] [ERROR] [04212] [04932] [mainwindow] Failed to create file logger.
///
/// The time falls away where it is 0. Category and message are written as they are, line feeds included.
void formatLine(std::string& out, const LogLine<char>& line);

/// The text file of a log, of about bounded size: a file that is too big is emptied before the next batch of
/// lines. Nothing is reported: a batch that cannot be written is lost, whole or from some line on, and the
/// next one tries again, folder and file included. One thread at a time.
class LogFile
{
public:
    /// `path` is the full name in UTF-8.
    explicit LogFile(std::string path);

    /// Writes the lines to the end of the file, in few pieces that each end with a line, so that the lines of
    /// several processes do not mix where the system appends each piece as a whole, as Unix does.
    void writeLines(const std::vector<LogLine<char>>& lines);

    void close() noexcept { m_file.reset(); }

private:
    void prepareFile();
    void openFile(platform::LogFileStart start);
    [[nodiscard]] bool endsInsideALine() const;
    [[nodiscard]] bool writeAll(const std::vector<LogLine<char>>& lines);
    [[nodiscard]] bool writeBuffer();
    [[nodiscard]] bool flush();

    const std::string m_path;
    std::string m_buffer;             ///< the line that is being written
    std::vector<char> m_streamBuffer; ///< of the file below, which goes before it
    std::size_t m_streamBytes = 0;    ///< how many wait in there
    platform::RuntimeFile m_file;     ///< null while closed
};

} // namespace quillon::logger::internal
