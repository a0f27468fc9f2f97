#pragma once

#include "logger/LogLine.h"

#include <string>

namespace quillon::logger::internal {

/// Replaces `out` by the text of `line` as it stands in a log file, without a line feed at its end:
///
///     [2026.11.14 11:17:12:123] [ERROR] [04212] [04932] [mainwindow] Failed to create file logger.
///
/// The time falls away where it is 0. Category and message are written as they are, line feeds included.
void formatLine(std::string& out, const LogLine<char>& line);

} // namespace quillon::logger::internal
