#pragma once

#include "crypto/SHashAlgId.h"

namespace thisapp {

/// An algorithm that the user can choose.
struct SHashAlgInfo
{
    SHashAlgId id;
    bool strong = false; ///< false for checksums and for digests that are broken

    friend constexpr bool operator==(const SHashAlgInfo&, const SHashAlgInfo&) noexcept = default;
};

} // namespace thisapp
