#pragma once

#include "crypto/HashResult.h"

#include <cstdint>

namespace quillon::crypto {

/// One cipher that takes a message in pieces, each a whole number of blocks. Belongs to one driver and is
/// used by one thread at a time; only `isInitialised` may be called from any thread. All sizes are bytes.
class ISymmetricEngine
{
public:
    virtual ~ISymmetricEngine() = default;

    [[nodiscard]] virtual std::uint32_t getLibraryId() const = 0;
    [[nodiscard]] virtual std::uint32_t getAlgorithmId() const = 0;
    [[nodiscard]] virtual std::int32_t getKeySize() const = 0;
    [[nodiscard]] virtual std::int32_t getIvSize() const = 0;
    [[nodiscard]] virtual std::int32_t getBlockSize() const = 0;

    /// Room that `process` wants in its output beside the length of its input.
    [[nodiscard]] virtual std::int32_t getExtraSize() const = 0;

    /// Version number of the provider, for information.
    [[nodiscard]] virtual std::int32_t getLibraryVersion() const = 0;

    /// Begins a message. (5, 6) for a null pointer, then (5, 4040) and (5, 4041) for a key or an IV of
    /// another size than the engine's, then (5, 4007) where a message has begun already.
    virtual HashResult setKey(const void* key, std::int32_t keyLength, const void* iv,
                              std::int32_t ivLength) = 0;

    /// Ends the message, whatever its outcome.
    virtual void release() = 0;

    [[nodiscard]] virtual bool isInitialised() const = 0;

    /// Passes `inputLength` bytes through the cipher to `output`, which has room for `outputSize`, and stores
    /// the number of bytes written in `*processed`, which may be null. (5, 4006) before `setKey`. Without
    /// input nothing is done, `*processed` stays, and it succeeds. (5, 16) for a null `output` or one without
    /// room, (5, 21) where the input is longer, (5, 4000) where it is no whole number of blocks.
    virtual HashResult process(const void* input, std::int32_t inputLength, void* output,
                               std::int32_t outputSize, std::int32_t* processed) = 0;

    /// For ciphers that hold bytes back to the end of the message.
    virtual HashResult finish() = 0;
};

/// The engine of an ISymmetricEncryptor.
class ISymmetricEncryptorEngine : public ISymmetricEngine
{
};

/// The engine of an ISymmetricDecryptor.
class ISymmetricDecryptorEngine : public ISymmetricEngine
{
};

} // namespace quillon::crypto
