#pragma once

#include "err/ResultCode.h"
#include "io/EBomKind.h"

#include <string>

namespace quillon::file {

/// Tells by the head of the file with the UTF-8 name `path` which byte order mark it has. {5, 40} for an
/// empty path, {5, 41} where there is no such file or it is a folder, {5, 42} where it cannot be opened; no
/// mark then.
err::ResultCode detectBom(const std::string& path, io::EBomKind& kind);

} // namespace quillon::file
