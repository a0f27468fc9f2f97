#include "io/OStreamBytes.h"

#include <mutex>

namespace quillon::io {

unsigned OStreamBytes::write(const char* buffer, int count)
{
    if (!m_error.beginWrite(buffer, count))
        return 0;
    const std::lock_guard guard(m_data);
    m_data.value.insert(m_data.value.end(), buffer, buffer + count);
    return static_cast<unsigned>(count);
}

} // namespace quillon::io
