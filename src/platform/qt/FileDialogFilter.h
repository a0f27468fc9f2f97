#pragma once

#include <QString>

namespace quillon::platform {

/// The pattern with which a file dialog of this system shows every file, in parentheses: " (*)" or " (*.*)".
[[nodiscard]] QString allFilesPattern();

} // namespace quillon::platform
