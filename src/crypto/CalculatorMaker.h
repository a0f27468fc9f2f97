#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHash.h"

#include <cstdint>
#include <memory>
#include <span>

/// The table from which a factory works.
namespace quillon::crypto::internal {

/// One algorithm that a factory offers, and how its calculator is made.
struct CalculatorMaker
{
    std::uint32_t algorithmId;
    std::unique_ptr<IHash> (*make)();
};

template <class Calculator>
[[nodiscard]] std::unique_ptr<IHash> makeCalculator()
{
    return std::make_unique<Calculator>();
}

/// IHashFactoryBase::create of the factory that offers `makers` under `ownLibraryId`.
HashResult createCalculator(std::span<const CalculatorMaker> makers, std::uint32_t ownLibraryId,
                            std::uint32_t libraryId, std::uint32_t algorithmId, IHash** calculator);

} // namespace quillon::crypto::internal
