#pragma once

#include "crypto/HashCalculator.h"

namespace quillon::cryptopp::internal {

/// The calculator of a Crypto++ engine.
template <class Engine>
using CHash = crypto::internal::HashCalculator<Engine>;

} // namespace quillon::cryptopp::internal
