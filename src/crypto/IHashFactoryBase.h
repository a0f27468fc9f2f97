#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHash.h"

#include <cstdint>
#include <memory>
#include <span>

namespace quillon::crypto {

/// Makes the calculators of one library. Factories hold no state; any thread may call them.
class IHashFactoryBase
{
public:
    virtual ~IHashFactoryBase() = default;

    /// Stores a new calculator in `*calculator`; the caller owns it. (5, 5) for a null `calculator`, (5, 70)
    /// for a library or an algorithm that this factory does not offer; `*calculator` then stays as it was.
    virtual HashResult create(std::uint32_t libraryId, std::uint32_t algorithmId,
                              IHash** calculator) const = 0;
};

} // namespace quillon::crypto

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
