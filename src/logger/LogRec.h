#pragma once

#include "logger/LogRec_Impl.h"

#include <string>

namespace quillon::logger {
namespace internal {

template <class Char>
class LogRec;

/// The record that callers construct, on the stack and for one statement.
template <>
class LogRec<char> final : public LogRec_Impl<char>
{
public:
    using LogRec_Impl<char>::LogRec_Impl;
    using LogRec_Impl<char>::operator<<;

    ILogRecBase& operator<<(const std::wstring& text) override;
    ILogRecBase& operator<<(const wchar_t* text) override;
    ILogRecBase& operator<<(const std::string& text) override;
    ILogRecBase& operator<<(const char* text) override;
};

} // namespace internal

using internal::LogRec;

} // namespace quillon::logger
