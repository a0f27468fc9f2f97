#pragma once

#include "crypto/HashResult.h"

#include <cstdint>

namespace quillon::crypto {

/// One hash algorithm that absorbs bytes and delivers a digest. Belongs to one calculator and is used by one
/// thread at a time.
class IHashEngine
{
public:
    virtual ~IHashEngine() = default;

    [[nodiscard]] virtual std::uint32_t getLibraryId() const = 0;
    [[nodiscard]] virtual std::uint32_t getAlgorithmId() const = 0;

    /// Length of the digest in bytes.
    [[nodiscard]] virtual std::int32_t getDigestSize() const = 0;

    /// Version number of the provider, for information.
    [[nodiscard]] virtual std::int32_t getLibraryVersion() const = 0;

    /// Prepares for one message and clears the digest bytes.
    virtual HashResult init() = 0;

    /// Ends one message, whatever its outcome.
    virtual void release() = 0;

    [[nodiscard]] virtual bool isInitialised() const = 0;

    /// Absorbs `length` bytes. A null pointer is fine with a length of 0.
    virtual HashResult update(const void* data, std::int32_t length) = 0;

    /// Finishes the message into the engine's digest bytes.
    virtual HashResult final() = 0;

    /// Copies the digest bytes to `output`, which has room for `size` bytes. (5, 6) for a null pointer, (5,
    /// 10) where the room is too small.
    virtual HashResult getDigest(void* output, std::int32_t size) const = 0;
};

} // namespace quillon::crypto
