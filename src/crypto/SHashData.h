#pragma once

#include "crypto/HashCatalogue.h"
#include "crypto/HashResult.h"

#include <cstdint>
#include <string>

namespace thisapp {

/// One run: what was asked for, filled in at its start, and what the worker has told about it since.
struct SHashData
{
    SHashAlgId algorithm;
    std::string fileName; ///< UTF-8
    std::uint32_t inputKind = 1;
    float percent = 0.0F;
    std::uint64_t processedBytes = 0;
    bool stopped = false;
    quillon::crypto::HashResult result;
    bool fileChanged = false; ///< somebody wrote to the file while it was read
};

} // namespace thisapp
