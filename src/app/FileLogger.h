#pragma once

#include <string>

namespace quillon {

/// Switches the log file of the process on or off. On: lines go to the file with the full UTF-8 name `path`
/// from here on; where the file is on already, nothing changes. Off: every appender goes, the file is closed
/// and what still waits is lost. A failure shows in the log only. Main thread.
void setFileLoggerEnabled(bool enabled, const std::string& path);

} // namespace quillon
