#pragma once

#include "io/IStreamUtf8File.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace quillon::i18n::internal {

/// The bytes of a file that come next, in a queue that refills itself. The stream has to live as long.
class LookAhead
{
public:
    /// The queue never has fewer bytes than this before the end of the file.
    static constexpr std::size_t kLeastBytes = 16;

    explicit LookAhead(io::IStreamUtf8File& stream);

    /// The queue; empty at the end of the file. Valid until the next call.
    [[nodiscard]] std::string_view view()
    {
        if (m_end - m_begin < kLeastBytes && !m_isDrained)
            fill();
        return {m_bytes.data() + m_begin, m_end - m_begin};
    }

    /// Drops the first `count` bytes of the queue, which must be there.
    void skip(std::size_t count) noexcept { m_begin += count; }

    /// Passes all bytes ahead of the first that `isStop` is true for, and hands them to `sink` as they come.
    /// False where there is none up to the end of the file.
    template <class IsStop, class Sink>
    bool passTo(IsStop isStop, Sink sink)
    {
        for (std::string_view bytes = view(); !bytes.empty(); bytes = view()) {
            const auto stop = std::find_if(bytes.begin(), bytes.end(), isStop);
            const auto count = static_cast<std::size_t>(stop - bytes.begin());
            sink(bytes.substr(0, count));
            skip(count);
            if (count < bytes.size())
                return true;
        }
        return false;
    }

    template <class IsStop>
    bool passTo(IsStop isStop)
    {
        return passTo(isStop, [](std::string_view) {});
    }

private:
    void fill();

    io::IStreamUtf8File& m_stream;
    std::vector<char> m_bytes;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    bool m_isDrained = false;
};

} // namespace quillon::i18n::internal
