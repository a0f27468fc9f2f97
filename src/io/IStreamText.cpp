#include "io/IStreamText.h"

#include "text/AsciiText.h"

#include <algorithm>
#include <cstring>
#include <mutex>

namespace quillon::io::internal {

void IStreamText<char>::setText(const char* text)
{
    m_text.set(text == nullptr ? STextOpt{}
                               : STextOpt{text, static_cast<std::int64_t>(std::strlen(text)), 0});
}

bool IStreamText<char>::isBegin() const
{
    const STextOpt options = m_text.get();
    return options.hasText() && options.position == 0;
}

bool IStreamText<char>::isEnd() const
{
    const STextOpt options = m_text.get();
    return !options.hasText() || options.position >= options.length;
}

bool IStreamText<char>::read(char* buffer, int count, unsigned* bytesRead)
{
    if (const std::optional<bool> answer = m_error.beginRead(buffer, count, bytesRead))
        return *answer;
    const std::lock_guard guard(m_text);
    STextOpt& options = m_text.value;
    if (!options.hasText())
        return false;
    const auto taken = std::min<std::int64_t>(count, options.length - options.position);
    std::copy_n(options.text + options.position, taken, buffer);
    options.position += taken;
    *bytesRead = static_cast<unsigned>(taken);
    return taken > 0;
}

void IStreamHexText<char>::STextOpt::skipSpace()
{
    while (!isAtEnd() && text::isAsciiSpace(text[position]))
        ++position;
}

std::optional<int> IStreamHexText<char>::STextOpt::takeDigit()
{
    skipSpace();
    const int value = isAtEnd() ? -1 : text::hexDigitValue(text[position]);
    if (value < 0)
        return std::nullopt;
    ++position;
    return value;
}

std::optional<char> IStreamHexText<char>::STextOpt::takeByte()
{
    const std::optional<int> high = takeDigit();
    const std::optional<int> low = high ? takeDigit() : std::nullopt;
    if (!low)
        return std::nullopt;
    return static_cast<char>(*high * 16 + *low);
}

/// Walks the text once from its front; false where something but digits and white space stands in it.
bool IStreamHexText<char>::STextOpt::countBytes()
{
    while (takeByte())
        ++byteCount;
    // Whatever stopped the walk short of the end is no digit.
    const bool isValid = isAtEnd();
    position = 0;
    return isValid;
}

err::ResultCode IStreamHexText<char>::setText(const char* text)
{
    STextOpt options;
    if (text != nullptr)
        options = {text, static_cast<std::int64_t>(std::strlen(text)), 0, 0};
    if (!options.countBytes()) {
        m_text.set({});
        return m_error.keep(err::programError(err::kInvalidArgument));
    }
    m_text.set(options);
    return {};
}

bool IStreamHexText<char>::isBegin() const
{
    const STextOpt options = m_text.get();
    return options.hasText() && options.position == 0;
}

bool IStreamHexText<char>::isEnd() const
{
    const STextOpt options = m_text.get();
    return !options.hasText() || options.isAtEnd();
}

bool IStreamHexText<char>::read(char* buffer, int count, unsigned* bytesRead)
{
    if (const std::optional<bool> answer = m_error.beginRead(buffer, count, bytesRead))
        return *answer;
    const std::lock_guard guard(m_text);
    STextOpt& options = m_text.value;
    if (!options.hasText())
        return false;
    const auto limit =
        std::max<std::int64_t>(0, std::min<std::int64_t>(count, options.length - options.position));
    *bytesRead = static_cast<unsigned>(limit);
    std::optional<char> byte;
    for (std::int64_t i = 0; i < limit && (byte = options.takeByte()); ++i)
        buffer[i] = *byte;
    return byte.has_value();
}

} // namespace quillon::io::internal
