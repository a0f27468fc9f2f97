#include "io/IStreamBytes.h"

#include <algorithm>
#include <mutex>

namespace quillon::io {

bool IStreamBytes::read(char* buffer, int count, unsigned* bytesRead)
{
    if (const std::optional<bool> answer = m_error.beginRead(buffer, count, bytesRead))
        return *answer;
    const std::lock_guard guard(m_data);
    std::vector<char>& data = m_data.value;
    const auto taken = std::min<std::ptrdiff_t>(count, std::ssize(data));
    std::copy_n(data.begin(), taken, buffer);
    data.erase(data.begin(), data.begin() + taken);
    *bytesRead = static_cast<unsigned>(taken);
    return taken > 0;
}

std::int64_t IStreamBytes::size() const
{
    const std::lock_guard guard(m_data);
    return std::ssize(m_data.value);
}

unsigned OStreamBytes::write(const char* buffer, int count)
{
    if (!m_error.beginWrite(buffer, count))
        return 0;
    const std::lock_guard guard(m_data);
    m_data.value.insert(m_data.value.end(), buffer, buffer + count);
    return static_cast<unsigned>(count);
}

} // namespace quillon::io
