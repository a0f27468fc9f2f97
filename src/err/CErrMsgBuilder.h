#pragma once

#include <cstdint>
#include <string>

namespace quillon::err::internal {

/// Knows the texts of error codes. Implementations hold no state, so that any thread may ask.
template <class Char>
class CErrMsgBuilder
{
public:
    virtual ~CErrMsgBuilder() = default;

    /// Writes the text of one error value into `text` (UTF-8) and returns true. Where the value has no text
    /// the answer is false, and what `text` then holds means nothing.
    virtual bool buildMessage(std::uint32_t group, std::uint32_t code,
                              std::basic_string<Char>& text) const = 0;
};

} // namespace quillon::err::internal
