#pragma once

#include "crypto/skein/SkeinCore.h"
#include "crypto/skein/SkeinHashEngine.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace quillon::skein::internal {

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
