#pragma once

#include "crypto/IHashFactoryBase.h"

#include <cstdint>

namespace quillon::cryptopp {

/// Makes the calculators whose engines come from Crypto++.
class CHashFactory final : public crypto::IHashFactoryBase
{
public:
    crypto::HashResult create(std::uint32_t libraryId, std::uint32_t algorithmId,
                              crypto::IHash** calculator) const override;
};

} // namespace quillon::cryptopp
