#pragma once

#include <cstdint>

namespace thisapp {

/// Names a hash algorithm: the library that provides it and the algorithm within the catalogue. Both are 0
/// where no algorithm is chosen.
struct SHashAlgId
{
    std::uint32_t lib = 0;
    std::uint32_t alg = 0;

    friend constexpr bool operator==(const SHashAlgId&, const SHashAlgId&) noexcept = default;
};

} // namespace thisapp
