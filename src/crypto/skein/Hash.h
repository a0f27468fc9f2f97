#pragma once

#include "crypto/HashCalculator.h"

namespace quillon::skein::internal {

/// The calculator of a Skein engine.
template <class Engine>
using Hash = crypto::internal::HashCalculator<Engine>;

} // namespace quillon::skein::internal
