#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHashCallback.h"
#include "io/IIStream.h"

#include <cstdint>
#include <vector>

namespace quillon::crypto {

/// Deciphers the containers of an ISymmetricEncryptor, one at a time. `decrypt` works on the thread that
/// calls it; every other operation may be called from any thread at any time.
class ISymmetricDecryptor
{
public:
    using Input = io::internal::IIStream<char>;
    using Output = io::internal::IOStream<char>;
    using Bytes = std::vector<char>;

    virtual ~ISymmetricDecryptor() = default;

    [[nodiscard]] virtual std::uint32_t getLibraryId() const = 0;
    [[nodiscard]] virtual std::uint32_t getAlgorithmId() const = 0;

    /// In bytes, as is the next.
    [[nodiscard]] virtual std::int32_t getKeySize() const = 0;
    [[nodiscard]] virtual std::int32_t getIvSize() const = 0;

    [[nodiscard]] virtual bool isRunning() const = 0;

    /// Always 0: how far a run has come is told to its callback alone.
    [[nodiscard]] virtual float getProgress() const = 0;

    /// Writes the plain data of the container `input` to `output`. An empty input is the container of empty
    /// data. Arguments and errors are those of ISymmetricEncryptor::encrypt; besides: (5, 4004) for an input
    /// shorter than the header, (5, 4003) where the header's digest differs, which is how a wrong key shows,
    /// (5, 4005) where the input is shorter than its header says or is no whole number of blocks. Nothing was
    /// written to `output` then.
    ///
    /// Only the header is checked: a change behind it gives changed data, and what follows the data is
    /// dropped.
    virtual HashResult decrypt(Input* input, Output* output, const Bytes& key, IHashCallback* callback,
                               void* userData) = 0;
    virtual HashResult decrypt(Input* input, Output* output, const Bytes& key, const Bytes& iv,
                               IHashCallback* callback, void* userData) = 0;
    virtual HashResult decrypt(Input* input, Output* output, const Bytes& key, const Bytes& iv,
                               std::int32_t bufferBytes, std::uint32_t intervalMs, IHashCallback* callback,
                               void* userData) = 0;
    virtual HashResult decrypt(Input* input, Output* output, const char* password, IHashCallback* callback,
                               void* userData) = 0;
    virtual HashResult decrypt(Input* input, Output* output, const char* password,
                               std::uint32_t hashAlgorithmId, IHashCallback* callback, void* userData) = 0;
    virtual HashResult decrypt(Input* input, Output* output, const char* password,
                               std::uint32_t hashAlgorithmId, const Bytes& iv, std::int32_t bufferBytes,
                               std::uint32_t intervalMs, IHashCallback* callback, void* userData) = 0;

    /// Asks the run to end, which it does at the latest after the chunk in hand. A request that comes before
    /// the run has begun is lost.
    virtual void stop() = 0;
};

} // namespace quillon::crypto
