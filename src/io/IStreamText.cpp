#include "io/IStreamText.h"

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

} // namespace quillon::io::internal
