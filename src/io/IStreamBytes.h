#pragma once

#include "io/IIStream.h"
#include "io/StreamError.h"
#include "sync/SafeData.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace quillon::io {

/// Bytes in memory, consumed from the front: what was read is gone.
class IStreamBytes final : public internal::IIStream<char>
{
public:
    /// Replaces the bytes. Call it before the first read.
    void setBytes(std::vector<char> bytes) { m_data.set(std::move(bytes)); }

    /// True as long as a byte is left, also after a read.
    [[nodiscard]] bool isBegin() const override { return !isEnd(); }
    [[nodiscard]] bool isEnd() const override { return size() == 0; }

    /// Besides what every stream answers: {5, 5} for a null buffer. At the end `bytesRead` becomes 0.
    bool read(char* buffer, int count, unsigned* bytesRead) override;

    /// How many bytes were not read yet.
    [[nodiscard]] std::int64_t size() const override;

    [[nodiscard]] err::ResultCode lastError() const override { return m_error.get(); }

private:
    internal::StreamError m_error;
    mutable sync::SafeData<sync::Locker, std::vector<char>> m_data;
};

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
