#include "io/StreamError.h"

namespace quillon::io::internal {

std::optional<bool> StreamError::beginRead(const char* buffer, int count, unsigned* bytesRead)
{
    reset();
    if (count < 1) {
        *bytesRead = 0;
        return true;
    }
    if (buffer == nullptr)
        return fail(err::programError(err::kInvalidArgument));
    return std::nullopt;
}

bool StreamError::beginWrite(const char* buffer, int count)
{
    reset();
    if (count < 1)
        return false;
    return buffer != nullptr || fail(err::programError(err::kInvalidArgument));
}

} // namespace quillon::io::internal
