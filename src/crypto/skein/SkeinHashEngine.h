#pragma once

#include "crypto/IHashEngine.h"

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

} // namespace quillon::skein::internal
