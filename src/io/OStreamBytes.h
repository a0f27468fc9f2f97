#pragma once

#include "io/IOStream.h"
#include "io/StreamError.h"
#include "sync/SafeData.h"

#include <vector>

namespace quillon::io {

/// Bytes in memory that grow at the back.
class OStreamBytes final : public internal::IOStream<char>
{
public:
    /// Besides what every stream answers: {5, 5} for a null buffer.
    unsigned write(const char* buffer, int count) override;

    /// A copy of all that was written so far.
    [[nodiscard]] std::vector<char> bytes() const { return m_data.get(); }

    [[nodiscard]] err::ResultCode lastError() const override { return m_error.get(); }

private:
    internal::StreamError m_error;
    sync::SafeData<sync::Locker, std::vector<char>> m_data;
};

} // namespace quillon::io
