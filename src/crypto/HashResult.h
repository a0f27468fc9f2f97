#pragma once

#include "err/ResultCode.h"

namespace quillon::crypto {

/// The result of a hash operation: what failed, and, where a layer below failed, its error in `primary` and
/// what we were doing in `secondary`.
struct [[nodiscard]] HashResult
{
    err::ResultCode primary;
    err::ResultCode secondary;

    friend constexpr bool operator==(const HashResult&, const HashResult&) noexcept = default;
};

[[nodiscard]] constexpr bool succeeded(const HashResult& result) noexcept
{
    return err::succeeded(result.primary) && err::succeeded(result.secondary);
}

/// A plain failure with one of the program's own codes.
constexpr HashResult hashError(err::ErrorCode code) noexcept
{
    return {err::programError(code), {}};
}

} // namespace quillon::crypto
