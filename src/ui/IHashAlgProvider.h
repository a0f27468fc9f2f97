#pragma once

#include "crypto/SHashAlgId.h"

#include <cstdint>
#include <string>

namespace thisapp {

/// Where frames and dialogs read the selectable hash algorithms.
class IHashAlgProvider
{
public:
    virtual ~IHashAlgProvider() = default;

    [[nodiscard]] virtual std::int32_t getAlgorithmCount() const = 0;

    /// Writes the algorithm at `index`, counted from 0, into `id` and returns true. For an index out of range
    /// the answer is false and `id` stays as it is.
    virtual bool getAlgorithm(std::int32_t index, SHashAlgId& id) const = 0;

    /// The algorithm's name for display, UTF-8; empty for an unknown one.
    [[nodiscard]] virtual std::string getAlgorithmName(const SHashAlgId& id) const = 0;

    /// Whether `id` is one of the algorithms offered here.
    [[nodiscard]] virtual bool isAlgorithmKnown(const SHashAlgId& id) const = 0;
};

} // namespace thisapp
