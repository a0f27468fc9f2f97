#pragma once

#include "err/ResultCode.h"

namespace quillon::io::internal {

/// A place that takes a sequence of `Char`. A failed operation throws nothing; `lastError` tells why. Any
/// thread may call any operation.
template <class Char>
class IOStream
{
public:
    virtual ~IOStream() = default;

    /// Writes `count` characters from `buffer` and returns how many were taken: 0 for a `count` below 1,
    /// which is no error, and on failure.
    virtual unsigned write(const Char* buffer, int count) = 0;

    /// Writes one character; the answer is that of `write`.
    virtual unsigned writeChar(Char c) { return write(&c, 1); }

    /// The last failure; every write resets it.
    [[nodiscard]] virtual err::ResultCode lastError() const = 0;
};

} // namespace quillon::io::internal
