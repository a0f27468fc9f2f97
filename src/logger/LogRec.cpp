#include "logger/LogRec.h"

#include "text/Unicode.h"

namespace quillon::logger::internal {

ILogRecBase& LogRec<char>::operator<<(const std::wstring& text)
{
    writeText(text::utf8FromWide(text));
    return *this;
}

ILogRecBase& LogRec<char>::operator<<(const wchar_t* text)
{
    if (text != nullptr)
        writeText(text::utf8FromWide(text));
    return *this;
}

ILogRecBase& LogRec<char>::operator<<(const std::string& text)
{
    writeText(text);
    return *this;
}

ILogRecBase& LogRec<char>::operator<<(const char* text)
{
    if (text != nullptr)
        writeText(text);
    return *this;
}

} // namespace quillon::logger::internal
