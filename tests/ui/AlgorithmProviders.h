#pragma once

#include "crypto/HashCatalogue.h"
#include "ui/AlgorithmList.h"
#include "ui/PrintQString.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace thisapp {

/// Lets a failed expectation show an id as "(1,11)".
inline void PrintTo(const SHashAlgId& id, std::ostream* stream)
{
    *stream << '(' << id.lib << ',' << id.alg << ')';
}

} // namespace thisapp

namespace quillon::tests {

/// Offers the given algorithms, or the whole catalogue. A row with the id zero is refused by `getAlgorithm`.
class ListedAlgorithms final : public thisapp::IHashAlgProvider
{
public:
    ListedAlgorithms()
    {
        for (const crypto::HashAlgorithm& row : crypto::hashCatalogue())
            m_ids.push_back(row.id);
    }
    explicit ListedAlgorithms(std::vector<thisapp::SHashAlgId> ids)
        : m_ids(std::move(ids))
    {
    }

    [[nodiscard]] std::int32_t getAlgorithmCount() const override { return static_cast<int>(m_ids.size()); }

    bool getAlgorithm(std::int32_t index, thisapp::SHashAlgId& id) const override
    {
        id = m_ids.at(static_cast<std::size_t>(index));
        return id != thisapp::SHashAlgId{};
    }

    [[nodiscard]] std::string getAlgorithmName(const thisapp::SHashAlgId& id) const override
    {
        return std::string(crypto::getHashAlgName(id.alg));
    }

    [[nodiscard]] bool isAlgorithmKnown(const thisapp::SHashAlgId& id) const override
    {
        return std::find(m_ids.begin(), m_ids.end(), id) != m_ids.end();
    }

private:
    std::vector<thisapp::SHashAlgId> m_ids;
};

} // namespace quillon::tests
