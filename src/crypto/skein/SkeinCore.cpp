#include "crypto/skein/SkeinCore.h"

#include "crypto/skein/LittleEndian.h"
#include "crypto/skein/SkeinInitialValues.h"

#include <algorithm>
#include <cstring>

namespace quillon::skein {
namespace {

constexpr std::uint32_t kSuccess = 0;
constexpr std::uint64_t kSchemaAndVersion = 0x0000000133414853; // "SHA3", version 1
constexpr std::uint64_t kConfigurationBytes = 32;
constexpr std::uint64_t kCounterBytes = 8; // of an output block

template <std::size_t kWords>
void computeInitialValue(SkeinState<kWords>& state) noexcept
{
    state.chain.fill(0);
    state.tweak = {0, kTweakConfiguration};
    state.buffer.fill(0);
    internal::writeLittleEndian64(state.buffer.data(), kSchemaAndVersion);
    internal::writeLittleEndian64(state.buffer.data() + kWordBytes, state.hashBitLen);
    skeinBlock(state, state.buffer.data(), 1, kConfigurationBytes);
}

/// Appends to the buffer, where the caller knows that there is room.
template <std::size_t kWords>
void bufferBytes(SkeinState<kWords>& state, const unsigned char* data, std::uint64_t byteCount) noexcept
{
    if (byteCount == 0)
        return; // `data` may be null, which memcpy must not see
    std::memcpy(state.buffer.data() + state.bufferedBytes, data, static_cast<std::size_t>(byteCount));
    state.bufferedBytes += byteCount;
}

/// The last block of the message, padded with zeros.
template <std::size_t kWords>
void finishMessage(SkeinState<kWords>& state) noexcept
{
    state.tweak[1] |= kTweakFinalBlock;
    std::fill(state.buffer.begin() + static_cast<std::ptrdiff_t>(state.bufferedBytes), state.buffer.end(),
              static_cast<unsigned char>(0));
    skeinBlock(state, state.buffer.data(), 1, state.bufferedBytes);
}

/// Output block `counter`: the finished chaining value stays in the state, the result is returned.
template <std::size_t kWords>
std::array<unsigned char, SkeinState<kWords>::kBlockBytes> outputBlock(SkeinState<kWords>& state,
                                                                       std::uint64_t counter) noexcept
{
    const auto finished = state.chain;
    internal::writeLittleEndian64(state.buffer.data(), counter);
    state.tweak = {0, kTweakOutput};
    skeinBlock(state, state.buffer.data(), 1, kCounterBytes);
    std::array<unsigned char, SkeinState<kWords>::kBlockBytes> bytes;
    for (std::size_t i = 0; i < kWords; ++i)
        internal::writeLittleEndian64(bytes.data() + i * kWordBytes, state.chain[i]);
    state.chain = finished;
    return bytes;
}

} // namespace

template <std::size_t kWords>
std::uint32_t skeinInit(SkeinState<kWords>& state, std::uint64_t hashBitLen) noexcept
{
    state.hashBitLen = hashBitLen;
    const auto& table = internal::kInitialValues<kWords>;
    const auto entry = std::find_if(table.begin(), table.end(), [hashBitLen](const auto& candidate) {
        return candidate.hashBitLen == hashBitLen;
    });
    if (entry != table.end())
        state.chain = entry->chain;
    else
        computeInitialValue(state);
    state.tweak = {0, kTweakMessage};
    state.bufferedBytes = 0;
    state.buffer.fill(0);
    return kSuccess;
}

template <std::size_t kWords>
std::uint32_t skeinUpdate(SkeinState<kWords>& state, const void* bytes, std::uint64_t byteCount) noexcept
{
    constexpr std::uint64_t kBlockBytes = SkeinState<kWords>::kBlockBytes;
    const auto* data = static_cast<const unsigned char*>(bytes);
    // Strictly more than a block: at least one byte has to stay for Final, which marks the last block.
    if (byteCount > kBlockBytes - state.bufferedBytes) {
        if (state.bufferedBytes > 0) {
            const std::uint64_t missing = kBlockBytes - state.bufferedBytes;
            bufferBytes(state, data, missing);
            data += missing;
            byteCount -= missing;
            skeinBlock(state, state.buffer.data(), 1, kBlockBytes);
            state.bufferedBytes = 0;
        }
        if (byteCount > kBlockBytes) {
            const std::uint64_t blockCount = (byteCount - 1) / kBlockBytes;
            skeinBlock(state, data, blockCount, kBlockBytes);
            data += blockCount * kBlockBytes;
            byteCount -= blockCount * kBlockBytes;
        }
    }
    bufferBytes(state, data, byteCount);
    return kSuccess;
}

template <std::size_t kWords>
std::uint32_t skeinFinal(SkeinState<kWords>& state, void* output) noexcept
{
    finishMessage(state);
    state.buffer.fill(0);
    const auto outputBytes = static_cast<std::size_t>((state.hashBitLen + 7) / 8);
    auto* out = static_cast<unsigned char*>(output);
    for (std::size_t done = 0, counter = 0; done < outputBytes; ++counter) {
        const auto bytes = outputBlock(state, counter);
        const std::size_t count = std::min(bytes.size(), outputBytes - done);
        std::memcpy(out + done, bytes.data(), count);
        done += count;
    }
    return kSuccess;
}

template std::uint32_t skeinInit(Skein256State&, std::uint64_t) noexcept;
template std::uint32_t skeinUpdate(Skein256State&, const void*, std::uint64_t) noexcept;
template std::uint32_t skeinFinal(Skein256State&, void*) noexcept;

template std::uint32_t skeinInit(Skein512State&, std::uint64_t) noexcept;
template std::uint32_t skeinUpdate(Skein512State&, const void*, std::uint64_t) noexcept;
template std::uint32_t skeinFinal(Skein512State&, void*) noexcept;

template std::uint32_t skeinInit(Skein1024State&, std::uint64_t) noexcept;
template std::uint32_t skeinUpdate(Skein1024State&, const void*, std::uint64_t) noexcept;
template std::uint32_t skeinFinal(Skein1024State&, void*) noexcept;

} // namespace quillon::skein
