#pragma once

#include "crypto/HashCatalogue.h"

#include <optional>

namespace thisapp {

/// The stored default algorithm. Empty where the user wants none at the start or where a stored id is not in
/// its table. Whether library and algorithm belong together is for the caller to ask its catalogue.
[[nodiscard]] std::optional<SHashAlgId> readDefaultHashAlgorithm();

/// Stores `id` as the default algorithm.
void writeDefaultHashAlgorithm(const SHashAlgId& id);

} // namespace thisapp
