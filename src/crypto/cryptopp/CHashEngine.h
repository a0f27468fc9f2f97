#pragma once

#include "crypto/HashCalculator.h"
#include "crypto/HashCatalogue.h"
#include "crypto/IHashEngine.h"

#include <cryptopp/crc.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quillon::cryptopp::internal {

/// The IHashEngine of a Crypto++ hash class. `Alg` is constructed ready for a message and made ready for the
/// next one by its Final; `init` does not restart it, so a message that was broken off spoils the next.
template <class Alg, std::uint32_t id>
class CHashEngine : public crypto::IHashEngine
{
public:
    static constexpr std::int32_t kDigestBytes = Alg::DIGESTSIZE;

    [[nodiscard]] std::uint32_t getLibraryId() const override { return crypto::kCryptoppLibraryId; }
    [[nodiscard]] std::uint32_t getAlgorithmId() const override { return id; }
    [[nodiscard]] std::int32_t getDigestSize() const override { return kDigestBytes; }
    [[nodiscard]] std::int32_t getLibraryVersion() const override { return crypto::kCryptoppLibraryVersion; }

    crypto::HashResult init() override
    {
        m_digest.fill(0);
        return {};
    }

    void release() override {}

    [[nodiscard]] bool isInitialised() const override { return true; }

    crypto::HashResult update(const void* data, std::int32_t length) override
    {
        absorb(data, static_cast<std::size_t>(std::max(length, 0)));
        return {};
    }

    crypto::HashResult final() override
    {
        m_alg.Final(m_digest.data());
        return {};
    }

    crypto::HashResult getDigest(void* output, std::int32_t size) const override
    {
        if (output == nullptr)
            return crypto::hashError(err::kNullPointer);
        if (size < kDigestBytes)
            return crypto::hashError(err::kBufferTooSmall);
        std::memcpy(output, m_digest.data(), m_digest.size());
        return {};
    }

protected:
    void absorb(const void* data, std::size_t length)
    {
        m_alg.Update(static_cast<const unsigned char*>(data), length);
    }

private:
    std::array<unsigned char, Alg::DIGESTSIZE> m_digest{};
    Alg m_alg;
};

} // namespace quillon::cryptopp::internal

namespace quillon::cryptopp {

/// CRC-32 as in ISO/IEC 3309, with its digest most significant byte first, the way a CRC-32 is written.
class CCrc32HashEngine final : public internal::CHashEngine<CryptoPP::CRC32, 401>
{
public:
    /// `length` is not checked and must not be negative.
    crypto::HashResult update(const void* data, std::int32_t length) override
    {
        absorb(data, static_cast<std::size_t>(length));
        return {};
    }

    crypto::HashResult getDigest(void* output, std::int32_t size) const override
    {
        const crypto::HashResult copied = CHashEngine::getDigest(output, size);
        // CryptoPP::CRC32 delivers its register least significant byte first.
        if (succeeded(copied))
            std::reverse(static_cast<char*>(output), static_cast<char*>(output) + kDigestBytes);
        return copied;
    }
};

} // namespace quillon::cryptopp

namespace quillon::cryptopp::internal {

/// The calculator of a Crypto++ engine.
template <class Engine>
using CHash = crypto::internal::HashCalculator<Engine>;

} // namespace quillon::cryptopp::internal
