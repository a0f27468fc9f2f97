#pragma once

#include "logger/BorrowedStream.h"
#include "logger/ILogRecBase.h"
#include "logger/ILogSenderBase.h"
#include "logger/LogLine.h"

#include <string>
#include <string_view>
#include <utility>

namespace quillon::logger::internal {

template <class Char>
class LogRec_Impl;

/// All of a record but the writing of texts.
template <>
class LogRec_Impl<char> : public ILogRecBase
{
public:
    /// Holds a reference to `sender` for the record's life; a record without a sender ignores what it is
    /// given. The line carries the ids of the process and of the calling thread.
    LogRec_Impl(ILogSenderBase<char>* sender, ELogLevel level, const std::string& category);
    ~LogRec_Impl() override;

    ILogRecBase& operator<<(const err::ResultCodes& values) override;
    ILogRecBase& operator<<(const std::pair<err::ResultCode, err::ResultCode>& values) override;
    ILogRecBase& operator<<(const err::ResultCode& value) override;
    ILogRecBase& operator<<(const void* pointer) override { return write(pointer); }
    ILogRecBase& operator<<(long double value) override { return write(value); }
    ILogRecBase& operator<<(double value) override { return write(value); }
    ILogRecBase& operator<<(float value) override { return write(value); }
    ILogRecBase& operator<<(unsigned long long value) override { return write(value); }
    ILogRecBase& operator<<(long long value) override { return write(value); }
    ILogRecBase& operator<<(unsigned long value) override { return write(value); }
    ILogRecBase& operator<<(long value) override { return write(value); }
    ILogRecBase& operator<<(unsigned int value) override { return write(value); }
    ILogRecBase& operator<<(int value) override { return write(value); }
    ILogRecBase& operator<<(unsigned short value) override { return write(value); }
    ILogRecBase& operator<<(short value) override { return write(value); }
    ILogRecBase& operator<<(bool value) override { return write(value); }
    ILogRecBase& operator<<(ILogRecBase& (*manipulator)(ILogRecBase&)) override { return manipulator(*this); }
    using ILogRecBase::operator<<;

    void endLine() override;
    void setDecimal() override;
    void setHexadecimal() override;
    void setFixed() override;
    void setScientific() override;
    void flushRecord() override { flush(); }

protected:
    /// Writes without asking whether the level is on.
    void writeText(std::string_view text) { *m_stream << text; }

private:
    template <class Value>
    ILogRecBase& write(Value value)
    {
        if (isWanted())
            *m_stream << value;
        return *this;
    }

    [[nodiscard]] bool isWanted() const;
    void flush();

    ILogSenderBase<char>* m_sender;
    LogLine<char> m_line;
    BorrowedStream m_stream;
};

} // namespace quillon::logger::internal
