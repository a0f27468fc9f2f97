#pragma once

#include "io/IIStream.h"
#include "io/StreamError.h"
#include "sync/SafeData.h"

#include <cstdint>

namespace quillon::io {
namespace internal {

template <class Char>
class IStreamText;

/// The characters of a zero-terminated text that the caller owns.
template <>
class IStreamText<char> final : public IIStream<char>
{
public:
    /// Starts at the front of `text`, which must live as long as it is read. Null takes the text away.
    void setText(const char* text);

    [[nodiscard]] bool isBegin() const override;
    [[nodiscard]] bool isEnd() const override;

    /// Besides what every stream answers: {5, 5} for a null buffer. At the end of a text `bytesRead` becomes
    /// 0; without a text, or with an empty one, it stays as it was.
    bool read(char* buffer, int count, unsigned* bytesRead) override;

    /// The length of the whole text in bytes.
    [[nodiscard]] std::int64_t size() const override { return m_text.get().length; }

    [[nodiscard]] err::ResultCode lastError() const override { return m_error.get(); }

private:
    struct STextOpt
    {
        const char* text = nullptr;
        std::int64_t length = 0;
        std::int64_t position = 0;

        [[nodiscard]] bool hasText() const noexcept { return text != nullptr && length > 0; }
    };

    StreamError m_error;
    mutable sync::SafeData<sync::Locker, STextOpt> m_text;
};

} // namespace internal

using internal::IStreamText;

} // namespace quillon::io
