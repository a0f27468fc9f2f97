#pragma once

#include "err/ResultCode.h"
#include "logger/LogLine.h"

#include <memory>
#include <sstream>
#include <string>
#include <string_view>
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

/// An empty text stream in the classic locale, lent by a store of the process, as making one costs more than
/// all the rest of a log statement. The stream belongs to one thread; the store to all.
class BorrowedStream
{
public:
    BorrowedStream();

    /// Gives the stream back, with its text, its state and its formats as they were before.
    ~BorrowedStream();
    BorrowedStream(const BorrowedStream&) = delete;
    BorrowedStream& operator=(const BorrowedStream&) = delete;

    [[nodiscard]] std::stringstream& operator*() const noexcept { return *m_stream; }
    [[nodiscard]] std::stringstream* operator->() const noexcept { return m_stream.get(); }

private:
    std::unique_ptr<std::stringstream> m_stream;
};

/// Takes finished log lines. Counts its references; any thread may call any operation.
template <class Char>
class ILogSenderBase
{
public:
    virtual ~ILogSenderBase() = default;

    /// Adds a reference, or gives one back; both answer the new count. The sender must not be touched after
    /// the last reference was given back.
    virtual int addRef() = 0;
    virtual int release() = 0;

    /// True where a line of this level passes the threshold.
    [[nodiscard]] virtual bool isEnabled(ELogLevel level) const = 0;

    virtual void send(const LogLine<Char>& line) = 0;
};

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

namespace quillon::logger {

/// Manipulators to stream into a record: a line feed, the base of whole numbers, the form of fractions.
inline internal::ILogRecBase& endl(internal::ILogRecBase& record)
{
    record.endLine();
    return record;
}

inline internal::ILogRecBase& dec(internal::ILogRecBase& record)
{
    record.setDecimal();
    return record;
}

inline internal::ILogRecBase& hex(internal::ILogRecBase& record)
{
    record.setHexadecimal();
    return record;
}

inline internal::ILogRecBase& fixed(internal::ILogRecBase& record)
{
    record.setFixed();
    return record;
}

inline internal::ILogRecBase& scientific(internal::ILogRecBase& record)
{
    record.setScientific();
    return record;
}

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
