#pragma once

#include "err/ResultCode.h"

#include <string>
#include <utility>

namespace quillon::logger::internal {

/// A log line in the making: values are streamed in, and the finished line goes to the sender when the record
/// ends. Belongs to the thread that made it. Numbers look the same in every locale.
class ILogRecBase
{
public:
    ILogRecBase() = default;
    ILogRecBase(const ILogRecBase&) = delete;
    ILogRecBase& operator=(const ILogRecBase&) = delete;

    /// Flushes the record.
    virtual ~ILogRecBase() = default;

    /// "group/code" of one value; several are parted by commas.
    virtual ILogRecBase& operator<<(const err::ResultCodes& values) = 0;
    virtual ILogRecBase& operator<<(const std::pair<err::ResultCode, err::ResultCode>& values) = 0;
    virtual ILogRecBase& operator<<(const err::ResultCode& value) = 0;

    virtual ILogRecBase& operator<<(const void* pointer) = 0;
    virtual ILogRecBase& operator<<(long double value) = 0;
    virtual ILogRecBase& operator<<(double value) = 0;
    virtual ILogRecBase& operator<<(float value) = 0;
    virtual ILogRecBase& operator<<(unsigned long long value) = 0;
    virtual ILogRecBase& operator<<(long long value) = 0;
    virtual ILogRecBase& operator<<(unsigned long value) = 0;
    virtual ILogRecBase& operator<<(long value) = 0;
    virtual ILogRecBase& operator<<(unsigned int value) = 0;
    virtual ILogRecBase& operator<<(int value) = 0;
    virtual ILogRecBase& operator<<(unsigned short value) = 0;
    virtual ILogRecBase& operator<<(short value) = 0;
    virtual ILogRecBase& operator<<(bool value) = 0;
    /// A single character would be written as its number; stream a text.
    ILogRecBase& operator<<(char) = delete;

    /// Wide text is written as UTF-8, narrow text as it is; a null pointer writes nothing.
    virtual ILogRecBase& operator<<(const std::wstring& text) = 0;
    virtual ILogRecBase& operator<<(const wchar_t* text) = 0;
    virtual ILogRecBase& operator<<(const std::string& text) = 0;
    virtual ILogRecBase& operator<<(const char* text) = 0;

    /// Calls `manipulator` with this record.
    virtual ILogRecBase& operator<<(ILogRecBase& (*manipulator)(ILogRecBase&)) = 0;

    virtual void endLine() = 0;
    virtual void setDecimal() = 0;
    virtual void setHexadecimal() = 0;
    virtual void setFixed() = 0;
    virtual void setScientific() = 0;

    /// Sends the line now. The text stays, so the record's end sends it again.
    virtual void flushRecord() = 0;
};

} // namespace quillon::logger::internal
