#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHash.h"
#include "crypto/IHashCallback.h"
#include "crypto/IHashEngine.h"
#include "sync/SafeData.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What every calculator does, whatever its engine.
namespace quillon::crypto::internal {

/// What a calculator holds beside its engine, each item under a lock of its own. `digest` always has the size
/// of the engine's digest.
struct HashState
{
    explicit HashState(std::int32_t digestBytes)
        : digest(std::vector<char>(static_cast<std::size_t>(digestBytes)))
    {
    }

    sync::SafeValue<bool> stopRequested{false};
    sync::SafeValue<bool> running{false};
    sync::SafeValue<float> progress{0.0F};
    sync::SafeData<sync::Locker, std::vector<char>> digest;
};

/// How one run is to be done; see IHash::calculate.
struct HashRunOptions
{
    std::int32_t bufferBytes = kDefaultBufferBytes;
    std::uint32_t intervalMs = kDefaultProgressIntervalMs;
    IHashCallback* callback = nullptr;
    void* userData = nullptr;
};

/// IHash::calculate on `engine` and `state`.
HashResult calculateDigest(IHashEngine& engine, HashState& state, IHash::Stream* stream,
                           const HashRunOptions& options);

/// IHash::getDigest on `state`.
HashResult copyDigest(const HashState& state, std::int32_t digestBytes, void* output, std::int32_t size);

/// IHash::getDigestHex on `state`, for char and wchar_t.
template <class Char>
HashResult digestToHex(const HashState& state, std::basic_string<Char>& text);

} // namespace quillon::crypto::internal
