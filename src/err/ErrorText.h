#pragma once

#include "err/ResultCode.h"

#include <cstdint>
#include <string>
#include <string_view>

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

namespace quillon::err {

/// The numbers alone: "5/90" or "1/2,5/42". The first value always stands; the second and the third only
/// where their code is not zero.
[[nodiscard]] std::string errorCodesText(ResultCode first, ResultCode second = {}, ResultCode third = {});

/// The sentence for a person: a text, one blank and the numbers, as in "Reading file failed (error:
/// 5/45,1/5)". The text is that of the first failed value for which `builder` has one, else `defaultText`;
/// both are UTF-8 and trimmed. Where no value failed the answer is empty.
[[nodiscard]] std::string formatError(const internal::CErrMsgBuilder<char>& builder,
                                      std::string_view defaultText, ResultCode first, ResultCode second = {},
                                      ResultCode third = {});

} // namespace quillon::err
