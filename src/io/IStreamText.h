#pragma once

#include "io/IIStream.h"
#include "io/StreamError.h"
#include "sync/SafeData.h"

#include <cstdint>
#include <optional>

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

namespace internal {

template <class Char>
class IStreamHexText;

/// The bytes that a zero-terminated hexadecimal text spells, two digits of either case a byte. ASCII white
/// space does not count. The caller owns the text.
template <>
class IStreamHexText<char> final : public IIStream<char>
{
public:
    /// Starts at the front of `text`, which must live as long as it is read. A single digit left at the end
    /// is not counted. Null takes the text away. {5, 5} where the text has anything but digits and white
    /// space; the stream is then empty, and the failure is also kept as the last error.
    err::ResultCode setText(const char* text);

    [[nodiscard]] bool isBegin() const override;
    [[nodiscard]] bool isEnd() const override;

    /// Besides what every stream answers: {5, 5} for a null buffer. `bytesRead` is the smaller of `count` and
    /// the characters, not the bytes, that are left: a read of more bytes than the text still spells is
    /// false, with those bytes in front of the buffer and a `bytesRead` too large. So ask for `size()` bytes
    /// at most. Without a text, or with an empty one, `bytesRead` stays as it was.
    bool read(char* buffer, int count, unsigned* bytesRead) override;

    /// How many whole bytes the text spells.
    [[nodiscard]] std::int64_t size() const override { return m_text.get().byteCount; }

    [[nodiscard]] err::ResultCode lastError() const override { return m_error.get(); }

private:
    struct STextOpt
    {
        const char* text = nullptr;
        std::int64_t length = 0;
        std::int64_t position = 0;
        std::int64_t byteCount = 0;

        [[nodiscard]] bool hasText() const noexcept { return text != nullptr && length > 0; }
        [[nodiscard]] bool isAtEnd() const noexcept { return position >= length; }

        void skipSpace();
        std::optional<int> takeDigit();
        std::optional<char> takeByte();
        [[nodiscard]] bool countBytes();
    };

    StreamError m_error;
    mutable sync::SafeData<sync::Locker, STextOpt> m_text;
};

} // namespace internal

using internal::IStreamHexText;

} // namespace quillon::io
