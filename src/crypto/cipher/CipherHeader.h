#pragma once

#include "crypto/HashResult.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The head of a container's plain record; ISymmetricEncryptor shows its layout. Any thread.
namespace quillon::crypto::internal {

inline constexpr std::int32_t kCipherHeaderBytes = 56;

using CipherHeader = std::array<char, kCipherHeaderBytes>;

/// Writes the head of a record of `plainBytes` bytes, enciphered by `algorithmId`, to `header`.
HashResult makeCipherHeader(std::uint32_t algorithmId, std::int64_t plainBytes, bool useSalt,
                            CipherHeader& header);

/// Takes the length of the plain data, any 64-bit number, from a head. (5, 4003) where the digest does not
/// belong to this length and algorithm.
HashResult readCipherHeader(std::uint32_t algorithmId, std::span<const char, kCipherHeaderBytes> header,
                            std::int64_t& plainBytes);

} // namespace quillon::crypto::internal
