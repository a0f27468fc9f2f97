#pragma once

#include "err/CErrMsgBuilder.h"
#include "err/ResultCode.h"

#include <string>
#include <string_view>

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
