#include "logger/LogRec.h"

#include "platform/Clock.h"
#include "platform/Process.h"
#include "text/Unicode.h"

#include <array>
#include <iomanip>
#include <locale>
#include <mutex>
#include <string>
#include <utility>

namespace quillon::logger::internal {
namespace {

constexpr int kFormatPrecision = 6;

struct Store
{
    std::mutex lock;
    std::array<std::unique_ptr<std::stringstream>, 8> streams;
    std::size_t count = 0;
};

/// Never destroyed, so that the destructor of any other static object may still log.
Store& store()
{
    static Store* const instance = new Store;
    return *instance;
}

std::unique_ptr<std::stringstream> takeStored()
{
    Store& kept = store();
    const std::lock_guard guard(kept.lock);
    return kept.count > 0 ? std::move(kept.streams[--kept.count]) : nullptr;
}

std::unique_ptr<std::stringstream> makeStream()
{
    auto stream = std::make_unique<std::stringstream>(std::ios::in | std::ios::out);
    stream->imbue(std::locale::classic());
    return stream;
}

void clean(std::stringstream& stream)
{
    stream.str({});
    stream.clear();
    stream.flags(std::ios::skipws | std::ios::dec);
    stream.precision(kFormatPrecision);
}

} // namespace

BorrowedStream::BorrowedStream()
    : m_stream(takeStored())
{
    if (!m_stream)
        m_stream = makeStream();
}

BorrowedStream::~BorrowedStream()
{
    clean(*m_stream);
    Store& kept = store();
    const std::lock_guard guard(kept.lock);
    if (kept.count < kept.streams.size())
        kept.streams[kept.count++] = std::move(m_stream);
}

namespace {

std::ostream& writePair(std::ostream& stream, const err::ResultCode& value)
{
    return stream << value.group << '/' << value.code;
}

} // namespace

LogRec_Impl<char>::LogRec_Impl(ILogSenderBase<char>* sender, ELogLevel level, const std::string& category)
    : m_sender(sender)
{
    m_line.processId = platform::currentProcessId();
    m_line.threadId = platform::currentThreadId();
    m_line.level = level;
    m_line.category = category;
    // Last, as the destructor that gives the reference back does not run if one of the above throws.
    if (m_sender != nullptr)
        m_sender->addRef();
}

LogRec_Impl<char>::~LogRec_Impl()
{
    try {
        flush();
    } catch (...) {
        // A statement that cannot be logged, for want of memory say, must not end the program.
    }
    if (m_sender != nullptr)
        m_sender->release();
}

ILogRecBase& LogRec_Impl<char>::operator<<(const err::ResultCodes& values)
{
    if (isWanted()) {
        writePair(*m_stream, values.first) << ',';
        writePair(*m_stream, values.second) << ',';
        writePair(*m_stream, values.third);
    }
    return *this;
}

ILogRecBase& LogRec_Impl<char>::operator<<(const std::pair<err::ResultCode, err::ResultCode>& values)
{
    if (isWanted()) {
        writePair(*m_stream, values.first) << ',';
        writePair(*m_stream, values.second);
    }
    return *this;
}

ILogRecBase& LogRec_Impl<char>::operator<<(const err::ResultCode& value)
{
    if (isWanted())
        writePair(*m_stream, value);
    return *this;
}

void LogRec_Impl<char>::endLine()
{
    if (isWanted())
        *m_stream << std::endl;
}

void LogRec_Impl<char>::setDecimal()
{
    if (isWanted())
        *m_stream << std::dec;
}

void LogRec_Impl<char>::setHexadecimal()
{
    if (isWanted())
        *m_stream << std::hex;
}

void LogRec_Impl<char>::setFixed()
{
    if (isWanted())
        *m_stream << std::fixed;
}

void LogRec_Impl<char>::setScientific()
{
    if (isWanted())
        *m_stream << std::scientific;
}

bool LogRec_Impl<char>::isWanted() const
{
    return m_sender != nullptr && m_sender->isEnabled(m_line.level);
}

void LogRec_Impl<char>::flush()
{
    if (m_sender == nullptr)
        return;
    m_stream->flush();
    if (isWanted()) {
        m_line.time = platform::localTimeTicks();
        m_line.message = m_stream->str();
        m_sender->send(m_line);
    }
    m_stream->clear();
    m_line.message.clear();
}

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
