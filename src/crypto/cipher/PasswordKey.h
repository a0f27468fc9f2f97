#pragma once

#include "crypto/HashResult.h"

#include <cstdint>
#include <span>
#include <vector>

/// Digests of short texts by the hash algorithms of the Crypto++ library. Any thread.
namespace quillon::crypto::internal {

/// Sets `digest` to the digest of `message`.
HashResult digestOf(std::uint32_t algorithmId, std::span<const char> message, std::vector<char>& digest);

/// The smallest SHA3 whose digest fills a key of `keyBytes`, and the largest one for a longer key.
[[nodiscard]] std::uint32_t hashForKeySize(std::int32_t keyBytes) noexcept;

/// Makes a key of `keyBytes` from a zero-terminated password as ISymmetricEncryptor says; shorter where the
/// digest is shorter. A null password counts as a failure of the hash layer, (5, 6).
HashResult keyFromPassword(const char* password, std::uint32_t algorithmId, std::int32_t keyBytes,
                           std::vector<char>& key);

} // namespace quillon::crypto::internal
