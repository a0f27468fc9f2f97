#pragma once

#include "crypto/HashCalculator.h"
#include "crypto/IHashEngine.h"
#include "crypto/skein/SkeinCore.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quillon::skein::internal {

inline constexpr std::uint32_t kSkeinLibraryId = 300;
inline constexpr std::int32_t kSkeinLibraryVersion = 1;

/// What the Skein engines with a digest of `kBytes` bytes share: the digest.
template <std::size_t kBytes>
class SkeinHashEngine : public crypto::IHashEngine
{
public:
    [[nodiscard]] std::uint32_t getLibraryId() const final { return kSkeinLibraryId; }
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

/// The operations of the core by state size, in the form that SkeinCoreEngine takes.
struct Skein256Core
{
    using State = Skein256State;
    static constexpr auto init = skein256Init;
    static constexpr auto update = skein256Update;
    static constexpr auto final = skein256Final;
};

struct Skein512Core
{
    using State = Skein512State;
    static constexpr auto init = skein512Init;
    static constexpr auto update = skein512Update;
    static constexpr auto final = skein512Final;
};

struct Skein1024Core
{
    using State = Skein1024State;
    static constexpr auto init = skein1024Init;
    static constexpr auto update = skein1024Update;
    static constexpr auto final = skein1024Final;
};

/// A status of the core as a result: the status and what the engine was doing.
[[nodiscard]] constexpr crypto::HashResult coreResult(std::uint32_t status, err::ErrorCode doing) noexcept
{
    if (status == 0)
        return {};
    return {{err::kGroupSkein, status}, err::programError(doing)};
}

/// The engine of one algorithm: a core of some state size that delivers `kOutputBits` bits. Can be started
/// again at any time, also in the middle of a message.
template <class Core, std::uint32_t kAlgorithmId, std::size_t kOutputBits>
class SkeinCoreEngine : public SkeinHashEngine<kOutputBits / 8>
{
public:
    [[nodiscard]] std::uint32_t getAlgorithmId() const final { return kAlgorithmId; }

    crypto::HashResult init() final
    {
        this->clearDigest();
        const std::uint32_t status = Core::init(m_state, kOutputBits);
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
        return coreResult(Core::update(m_state, data, byteCount), err::kEngineUpdateFailed);
    }

    crypto::HashResult final() final
    {
        if (!m_initialised)
            return crypto::hashError(err::kEngineNotInitialised);
        std::array<unsigned char, kLongestDigestBytes> output{};
        const std::uint32_t status = Core::final(m_state, output.data());
        if (status == 0)
            this->setDigest(output.data());
        return coreResult(status, err::kEngineFinalFailed);
    }

private:
    static constexpr std::size_t kLongestDigestBytes = 128;
    static_assert(kOutputBits % 8 == 0 && kOutputBits / 8 <= kLongestDigestBytes);

    bool m_initialised = false;
    typename Core::State m_state{};
};

} // namespace quillon::skein::internal

/// The engines, named by state size and digest size in bits. The first argument of the base is the core of
/// the state size, then come the algorithm id and the digest size.
namespace quillon::skein {

class Skein256_224HashEngine final : public internal::SkeinCoreEngine<internal::Skein256Core, 100, 224>
{
};

class Skein256_256HashEngine final : public internal::SkeinCoreEngine<internal::Skein256Core, 101, 256>
{
};

class Skein512_224HashEngine final : public internal::SkeinCoreEngine<internal::Skein512Core, 102, 224>
{
};

class Skein512_256HashEngine final : public internal::SkeinCoreEngine<internal::Skein512Core, 103, 256>
{
};

class Skein512_384HashEngine final : public internal::SkeinCoreEngine<internal::Skein512Core, 104, 384>
{
};

class Skein512_512HashEngine final : public internal::SkeinCoreEngine<internal::Skein512Core, 105, 512>
{
};

class Skein1024_224HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 106, 224>
{
};

class Skein1024_256HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 107, 256>
{
};

class Skein1024_384HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 108, 384>
{
};

class Skein1024_512HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 109, 512>
{
};

class Skein1024_1024HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 110, 1024>
{
};

} // namespace quillon::skein

namespace quillon::skein::internal {

/// The calculator of a Skein engine.
template <class Engine>
using Hash = crypto::internal::HashCalculator<Engine>;

} // namespace quillon::skein::internal
