#pragma once

#include "err/ResultCode.h"
#include "sync/SafeData.h"

#include <optional>

namespace quillon::io::internal {

/// The last error of a stream, and the checks of arguments that all streams share. Any thread.
class StreamError
{
public:
    [[nodiscard]] err::ResultCode get() const { return m_last.get(); }

    void reset() { m_last.set({}); }

    /// Keeps `result`, a failure or not, and passes it on.
    err::ResultCode keep(err::ResultCode result)
    {
        m_last.set(result);
        return result;
    }

    /// Keeps `failure`; the answer of a read that failed.
    [[nodiscard]] bool fail(err::ResultCode failure)
    {
        m_last.set(failure);
        return false;
    }

    /// Begins a read: resets the error, and answers the read where its arguments alone decide. Without an
    /// answer there is a buffer and `count` is 1 or more.
    [[nodiscard]] std::optional<bool> beginRead(const char* buffer, int count, unsigned* bytesRead);

    /// Begins a write in the same way; true where there is something to write.
    [[nodiscard]] bool beginWrite(const char* buffer, int count);

private:
    sync::SafeData<sync::Locker, err::ResultCode> m_last;
};

} // namespace quillon::io::internal
