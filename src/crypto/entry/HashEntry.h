#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHash.h"
#include "crypto/SHashData.h"

#include <cstdint>
#include <memory>

/// The way into the hash core. Any thread may call these functions; each logs its failures.
namespace quillon::crypto {

/// A new calculator for an algorithm of the catalogue; empty where no library offers it.
[[nodiscard]] std::shared_ptr<IHash> getHashCalculator(std::uint32_t libraryId, std::uint32_t algorithmId);

/// Runs `hash` over the file `hashData.fileName`; no other field is looked at. `callback` may be null. The
/// digest is fetched from `hash` afterwards.
///
/// (5, 4006) without a calculator, (5, 200) without a file name; a file that cannot be opened gives the
/// system's error, and (5, 1004) where `callback` wants no more of it; otherwise the result of
/// IHash::calculate. The file is read to the length that it has when it is opened, and other programs may
/// write to it, of which `callback` hears.
HashResult calculateHash(const thisapp::SHashData& hashData, std::shared_ptr<IHash> hash,
                         IHashCallback* callback);

} // namespace quillon::crypto
