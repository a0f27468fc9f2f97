#include "logger/BorrowedStream.h"

#include <array>
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

} // namespace quillon::logger::internal
