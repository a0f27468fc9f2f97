#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>

namespace quillon::platform {

struct RuntimeFileCloser
{
    void operator()(std::FILE* file) const noexcept;
};

/// A buffered file of the C runtime library, closed by its owner.
using RuntimeFile = std::unique_ptr<std::FILE, RuntimeFileCloser>;

/// Opens the file with the UTF-8 name `path` in `mode` (as of fopen). Empty on failure, with the reason in
/// errno.
[[nodiscard]] RuntimeFile openRuntimeFile(const char* path, const char* mode);

/// Moves to `offset` bytes from the start, or to the end of the file; true on success. 64 bits on every
/// system.
[[nodiscard]] bool seekRuntimeFile(std::FILE* file, std::int64_t offset) noexcept;
[[nodiscard]] bool seekRuntimeFileToEnd(std::FILE* file) noexcept;

/// The position in bytes, or -1 on failure.
[[nodiscard]] std::int64_t tellRuntimeFile(std::FILE* file) noexcept;

} // namespace quillon::platform
