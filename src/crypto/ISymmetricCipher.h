#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHash.h"
#include "io/IIStream.h"

#include <cstdint>
#include <vector>

namespace quillon::crypto {

/// Enciphers one stream at a time into a container that an ISymmetricDecryptor of the same algorithm reads.
/// `encrypt` works on the thread that calls it; every other operation may be called from any thread at any
/// time.
///
/// The container is one CBC message. Its plain record begins with a header of 56 bytes, numbers
/// little-endian:
///
///     0   2   version, 2
///     2  32   header digest
///     34  6   zero
///     40  8   length of the plain data in bytes
///     48  6   salt, or zero
///     54  2   zero
///
/// and goes on with the plain data and zero bytes up to a whole number of blocks.
class ISymmetricEncryptor
{
public:
    using Input = io::internal::IIStream<char>;
    using Output = io::internal::IOStream<char>;
    using Bytes = std::vector<char>;

    virtual ~ISymmetricEncryptor() = default;

    [[nodiscard]] virtual std::uint32_t getLibraryId() const = 0;
    [[nodiscard]] virtual std::uint32_t getAlgorithmId() const = 0;

    /// In bytes, as is the next.
    [[nodiscard]] virtual std::int32_t getKeySize() const = 0;
    [[nodiscard]] virtual std::int32_t getIvSize() const = 0;

    [[nodiscard]] virtual bool isRunning() const = 0;

    /// Always 0: how far a run has come is told to its callback alone.
    [[nodiscard]] virtual float getProgress() const = 0;

    /// Writes the container of `input`, read to the size that it has at the start, to `output`; an empty
    /// input writes nothing. All pointers stay the caller's, and all but those two may be null.
    ///
    /// The key is given, or made from the zero-terminated `password`: the digest of its bytes by the
    /// algorithm `hashAlgorithmId` of the Crypto++ library, cut to the key size, and zero bytes for an empty
    /// password. Without an algorithm the key size chooses the smallest SHA3 that suffices. Without an IV it
    /// is zero. `bufferBytes` is the size of one read, at least 8 and as a rule a whole number of blocks,
    /// `intervalMs` the least time between two progress reports. With `useSalt` equal inputs give different
    /// containers.
    ///
    /// Refused without any effect: (5, 17) no input, (5, 18) no output, (5, 4060) buffer too small, (5, 4040)
    /// key and (5, 4041) IV of the wrong size, (5, 8) while a run is going on; tested in this order, but
    /// after the password: a failure there gives the hash layer's error and (5, 4042). In a run: (5, 13) and
    /// (5, 14) where memory runs out, (5, 60) for a failed or stalled read and (5, 61) for a failed write,
    /// both with the stream's error, or the engine's own result. A failed or stopped run leaves a part of the
    /// container in `output`. A stop is no failure: only `callback` hears of it.
    virtual HashResult encrypt(Input* input, Output* output, const Bytes& key, bool useSalt,
                               IHashCallback* callback, void* userData) = 0;
    virtual HashResult encrypt(Input* input, Output* output, const Bytes& key, const Bytes& iv, bool useSalt,
                               IHashCallback* callback, void* userData) = 0;
    virtual HashResult encrypt(Input* input, Output* output, const Bytes& key, const Bytes& iv,
                               std::int32_t bufferBytes, std::uint32_t intervalMs, bool useSalt,
                               IHashCallback* callback, void* userData) = 0;
    virtual HashResult encrypt(Input* input, Output* output, const char* password, bool useSalt,
                               IHashCallback* callback, void* userData) = 0;
    virtual HashResult encrypt(Input* input, Output* output, const char* password,
                               std::uint32_t hashAlgorithmId, bool useSalt, IHashCallback* callback,
                               void* userData) = 0;
    virtual HashResult encrypt(Input* input, Output* output, const char* password,
                               std::uint32_t hashAlgorithmId, const Bytes& iv, std::int32_t bufferBytes,
                               std::uint32_t intervalMs, bool useSalt, IHashCallback* callback,
                               void* userData) = 0;

    /// Asks the run to end, which it does at the latest after the chunk in hand. A request that comes before
    /// the run has begun is lost.
    virtual void stop() = 0;
};

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
