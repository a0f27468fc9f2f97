#pragma once

#include "err/ResultCode.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::compare {

/// The longest list that is read, in bytes.
inline constexpr std::int64_t kMostListBytes = std::int64_t{1024} * 1024;

struct ListFile
{
    err::ResultCode result;
    bool isTooLong = false; ///< nothing was read, and that is no failure
    std::string text;       ///< UTF-8
};

/// Reads the list with this UTF-8 name, which is no pipe and no device, and waits for nobody who holds it
/// back. On failure `result` is the result of the stream.
[[nodiscard]] ListFile readListFile(const std::string& fileName);

/// The UTF-8 text of a file with these bytes: UTF-16 with a mark, or else UTF-8 with or without one. What is
/// not well-formed is kept or becomes U+FFFD; never fails.
[[nodiscard]] std::string textOfFile(std::string_view bytes);

} // namespace quillon::compare
