#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHash.h"

#include <cstdint>

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
