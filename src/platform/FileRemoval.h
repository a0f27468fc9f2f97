#pragma once

#include "err/ResultCode.h"

#include <string>

namespace quillon::platform {

/// Whether something else than a folder is at the path. A link counts as what it points to, and one that
/// points nowhere as a file.
[[nodiscard]] bool isFileThere(const std::wstring& path);

/// Removes a file, or a link but not what it points to. Failure gives {1, system error}.
err::ResultCode removeFile(const std::wstring& path);

} // namespace quillon::platform
