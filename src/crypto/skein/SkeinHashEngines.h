#pragma once

#include "crypto/HashCalculator.h"
#include "crypto/HashCatalogue.h"
#include "crypto/IHashEngine.h"
#include "crypto/skein/SkeinCore.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quillon::skein::internal {

inline constexpr std::int32_t kSkeinLibraryVersion = 1;

/// What the Skein engines with a digest of `kBytes` bytes share: the digest.
template <std::size_t kBytes>
class SkeinHashEngine : public crypto::IHashEngine
{
public:
    [[nodiscard]] std::uint32_t getLibraryId() const final { return crypto::kSkeinLibraryId; }
    [[nodiscard]] std::int32_t getDigestSize() const final { return static_cast<std::int32_t>(kBytes); }
    [[nodiscard]] std::int32_t getLibraryVersion() const final { return kSkeinLibraryVersion; }

    crypto::HashResult getDigest(void* output, std::int32_t size) const final
    {
        if (output == nullptr)
            return crypto::hashError(err::kNullPointer);
        if (size < getDigestSize())
            return crypto::hashError(err::kBufferTooSmall);
        std::memcpy(output, m_digest.data(), kBytes);
        return {};
    }

protected:
    void clearDigest() noexcept { m_digest.fill(0); }

    /// Takes the first bytes of `output`, which holds at least `kBytes`.
    void setDigest(const unsigned char* output) noexcept { std::memcpy(m_digest.data(), output, kBytes); }

private:
    std::array<unsigned char, kBytes> m_digest{};
};

/// A status of the core as a result: the status and what the engine was doing.
[[nodiscard]] constexpr crypto::HashResult coreResult(std::uint32_t status, err::ErrorCode doing) noexcept
{
    if (status == 0)
        return {};
    return {{err::kGroupSkein, status}, err::programError(doing)};
}

/// The engine of one algorithm: the core with a state of `kStateBits` bits that delivers `kOutputBits` bits.
/// Can be started again at any time, also in the middle of a message.
template <std::size_t kStateBits, std::uint32_t kAlgorithmId, std::size_t kOutputBits>
class SkeinCoreEngine : public SkeinHashEngine<kOutputBits / 8>
{
public:
    [[nodiscard]] std::uint32_t getAlgorithmId() const final { return kAlgorithmId; }

    crypto::HashResult init() final
    {
        this->clearDigest();
        const std::uint32_t status = skeinInit(m_state, kOutputBits);
        m_initialised = status == 0;
        return coreResult(status, err::kEngineInitFailed);
    }

    void release() final { m_initialised = false; }

    [[nodiscard]] bool isInitialised() const final { return m_initialised; }

    crypto::HashResult update(const void* data, std::int32_t length) final
    {
        if (!m_initialised)
            return crypto::hashError(err::kEngineNotInitialised);
        const auto byteCount = length > 0 ? static_cast<std::uint64_t>(length) : 0;
        return coreResult(skeinUpdate(m_state, data, byteCount), err::kEngineUpdateFailed);
    }

    crypto::HashResult final() final
    {
        if (!m_initialised)
            return crypto::hashError(err::kEngineNotInitialised);
        std::array<unsigned char, kLongestDigestBytes> output{};
        const std::uint32_t status = skeinFinal(m_state, output.data());
        if (status == 0)
            this->setDigest(output.data());
        return coreResult(status, err::kEngineFinalFailed);
    }

private:
    static constexpr std::size_t kLongestDigestBytes = 128;
    static_assert(kOutputBits % 8 == 0 && kOutputBits / 8 <= kLongestDigestBytes);

    bool m_initialised = false;
    SkeinState<kStateBits / 64> m_state{};
};

} // namespace quillon::skein::internal

/// The engines, named by state size and digest size in bits. Between the two the base takes the algorithm id.
namespace quillon::skein {

class Skein256_224HashEngine final : public internal::SkeinCoreEngine<256, 100, 224>
{
};

class Skein256_256HashEngine final : public internal::SkeinCoreEngine<256, 101, 256>
{
};

class Skein512_224HashEngine final : public internal::SkeinCoreEngine<512, 102, 224>
{
};

class Skein512_256HashEngine final : public internal::SkeinCoreEngine<512, 103, 256>
{
};

class Skein512_384HashEngine final : public internal::SkeinCoreEngine<512, 104, 384>
{
};

class Skein512_512HashEngine final : public internal::SkeinCoreEngine<512, 105, 512>
{
};

class Skein1024_224HashEngine final : public internal::SkeinCoreEngine<1024, 106, 224>
{
};

class Skein1024_256HashEngine final : public internal::SkeinCoreEngine<1024, 107, 256>
{
};

class Skein1024_384HashEngine final : public internal::SkeinCoreEngine<1024, 108, 384>
{
};

class Skein1024_512HashEngine final : public internal::SkeinCoreEngine<1024, 109, 512>
{
};

class Skein1024_1024HashEngine final : public internal::SkeinCoreEngine<1024, 110, 1024>
{
};

} // namespace quillon::skein

namespace quillon::skein::internal {

/// The calculator of a Skein engine.
template <class Engine>
using Hash = crypto::internal::HashCalculator<Engine>;

} // namespace quillon::skein::internal
