#pragma once

#include "crypto/HashResult.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <span>
#include <vector>

namespace quillon::crypto::internal {

/// A block of the heap. That memory runs out is an answer here, not an exception.
class HeapBuffer
{
public:
    /// Takes `size` uninitialised bytes; false where memory runs out.
    [[nodiscard]] bool allocate(std::size_t size) noexcept
    {
        m_data.reset(new (std::nothrow) char[size]);
        m_size = m_data != nullptr ? size : 0;
        return m_data != nullptr;
    }

    void free() noexcept
    {
        m_data.reset();
        m_size = 0;
    }

    [[nodiscard]] std::span<char> bytes() const noexcept { return {m_data.get(), m_size}; }

private:
    std::unique_ptr<char[]> m_data;
    std::size_t m_size = 0;
};

} // namespace quillon::crypto::internal

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
