#pragma once

#include "crypto/HashResult.h"
#include "support/PrintResultCode.h"

#include <ostream>

namespace quillon::crypto {

/// Lets a failed expectation show a result as "{group,code},{group,code}".
inline void PrintTo(const HashResult& result, std::ostream* out)
{
    err::PrintTo(result.primary, out);
    *out << ',';
    err::PrintTo(result.secondary, out);
}

} // namespace quillon::crypto
