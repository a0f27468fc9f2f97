#include "err/ErrorText.h"

#include "text/AsciiText.h"

namespace quillon::err {
namespace {

std::string pairText(ResultCode value)
{
    return std::to_string(value.group) + '/' + std::to_string(value.code);
}

std::string builtMessage(const internal::CErrMsgBuilder<char>& builder, ResultCode value)
{
    std::string message;
    if (succeeded(value) || !builder.buildMessage(value.group, value.code, message))
        return {};
    return std::string(text::trimAscii(message));
}

/// The code list of the sentence: as long as the last failed value asks for, so a clean value in the middle
/// is shown too.
std::string sentenceCodes(ResultCode first, ResultCode second, ResultCode third)
{
    std::string codes = pairText(first);
    if (!succeeded(second) || !succeeded(third))
        codes += ',' + pairText(second);
    if (!succeeded(third))
        codes += ',' + pairText(third);
    return codes;
}

} // namespace

std::string errorCodesText(ResultCode first, ResultCode second, ResultCode third)
{
    std::string codes = pairText(first);
    for (const ResultCode value : {second, third}) {
        if (!succeeded(value))
            codes += ',' + pairText(value);
    }
    return codes;
}

std::string formatError(const internal::CErrMsgBuilder<char>& builder, std::string_view defaultText,
                        ResultCode first, ResultCode second, ResultCode third)
{
    if (succeeded(first) && succeeded(second) && succeeded(third))
        return {};
    std::string message;
    for (const ResultCode value : {first, second, third}) {
        message = builtMessage(builder, value);
        if (!message.empty())
            break;
    }
    if (message.empty())
        message = text::trimAscii(defaultText);
    if (!message.empty())
        message += ' ';
    return message + "(error: " + sentenceCodes(first, second, third) + ')';
}

} // namespace quillon::err
