#pragma once

#include "crypto/cryptopp/CHashEngine.h"

#include <crypto++/crc.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

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
