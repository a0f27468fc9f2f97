#pragma once

#include "crypto/HashCatalogue.h"
#include "ui/AlgorithmList.h"

#include <algorithm>

namespace quillon::tests {

/// Offers the whole catalogue.
class ListedAlgorithms final : public thisapp::IHashAlgProvider
{
public:
    [[nodiscard]] std::int32_t getAlgorithmCount() const override
    {
        return static_cast<std::int32_t>(crypto::hashCatalogue().size());
    }

    bool getAlgorithm(std::int32_t index, thisapp::SHashAlgId& id) const override
    {
        id = crypto::hashCatalogue()[static_cast<std::size_t>(index)].id;
        return true;
    }

    [[nodiscard]] std::string getAlgorithmName(const thisapp::SHashAlgId& id) const override
    {
        return std::string(crypto::getHashAlgName(id.alg));
    }

    [[nodiscard]] bool isAlgorithmKnown(const thisapp::SHashAlgId& id) const override
    {
        return std::ranges::any_of(crypto::hashCatalogue(), [&id](const auto& row) { return row.id == id; });
    }
};

} // namespace quillon::tests
