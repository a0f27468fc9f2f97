#include "crypto/IHashFactoryBase.h"

#include <algorithm>

namespace quillon::crypto::internal {

HashResult createCalculator(std::span<const CalculatorMaker> makers, std::uint32_t ownLibraryId,
                            std::uint32_t libraryId, std::uint32_t algorithmId, IHash** calculator)
{
    if (calculator == nullptr)
        return hashError(err::kInvalidArgument);
    if (libraryId != ownLibraryId)
        return hashError(err::kUnknownAlgorithm);
    const auto maker = std::ranges::find(makers, algorithmId, &CalculatorMaker::algorithmId);
    if (maker == makers.end())
        return hashError(err::kUnknownAlgorithm);
    *calculator = maker->make().release();
    return {};
}

} // namespace quillon::crypto::internal
