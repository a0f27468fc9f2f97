#pragma once

#include "err/ResultCode.h"

#include <cstdint>

namespace quillon::io::internal {

/// A sequence of `Char` that is read once, from front to back. A failed operation throws nothing: it answers
/// false, and `lastError` tells why. Any thread may call any operation, but two calls in a row, such as
/// `isEnd` and `read`, are not one step.
template <class Char>
class IIStream
{
public:
    virtual ~IIStream() = default;

    /// True where there is data and nothing was read yet.
    [[nodiscard]] virtual bool isBegin() const = 0;

    /// True where no more data can come. A stream that is not open or has no text is at its end.
    [[nodiscard]] virtual bool isEnd() const = 0;

    /// Reads up to `count` characters into `buffer`, which has room for `count`. `bytesRead`, never null,
    /// says how many came. True where data was delivered or `count` is below 1, which reads nothing and needs
    /// neither buffer nor open stream. False at the end, which is no error, and on failure, where `bytesRead`
    /// may be left as it was.
    virtual bool read(Char* buffer, int count, unsigned* bytesRead) = 0;

    /// Reads one character into `*c`. True where exactly one came.
    virtual bool readChar(Char* c)
    {
        unsigned bytesRead = 0;
        return read(c, 1, &bytesRead) && bytesRead == 1;
    }

    /// A length in bytes; each stream says which.
    [[nodiscard]] virtual std::int64_t size() const = 0;

    /// The last failure. Success where the last operation that resets it was clean; every read resets it.
    [[nodiscard]] virtual err::ResultCode lastError() const = 0;
};

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
