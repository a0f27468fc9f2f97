#pragma once

#include <cstdint>
#include <string_view>

namespace quillon::compare {

/// The id in the catalogue of an algorithm by one of the names that lists and tools give it, as "SHA256",
/// "sha-256", "SHA2-256" or "Keccak-256"; 0 for an unknown name.
[[nodiscard]] std::uint32_t algorithmNamed(std::string_view name);

/// The length of the longest beginning of `text` that names an algorithm and ends with the word; 0 for none.
[[nodiscard]] std::size_t algorithmNameLength(std::string_view text);

/// How common an algorithm is: of two that give digests of one length the likelier one has the lower number.
[[nodiscard]] int rankByUse(std::uint32_t algorithm) noexcept;

} // namespace quillon::compare
