#include "i18n/LookAhead.h"

#include <cstdint>
#include <span>

namespace quillon::i18n::internal {
namespace {

constexpr std::int64_t kMostBytes = 32768;

} // namespace

// Small files get small queues: a file may be one of a long chain of includes, which are all open at a time.
LookAhead::LookAhead(io::IStreamUtf8File& stream)
    : m_stream(stream)
    , m_bytes(static_cast<std::size_t>(std::min(stream.size(), kMostBytes)) + kLeastBytes)
{
}

void LookAhead::fill()
{
    const auto rest = m_bytes.begin();
    std::copy(rest + static_cast<std::ptrdiff_t>(m_begin), rest + static_cast<std::ptrdiff_t>(m_end), rest);
    m_end -= m_begin;
    m_begin = 0;
    while (m_end < kLeastBytes && !m_isDrained) {
        const std::size_t count = m_stream.readLines(std::span(m_bytes).subspan(m_end));
        m_end += count;
        m_isDrained = count == 0;
    }
}

} // namespace quillon::i18n::internal
