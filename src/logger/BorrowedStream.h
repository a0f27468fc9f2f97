#pragma once

#include <memory>
#include <sstream>

namespace quillon::logger::internal {

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

} // namespace quillon::logger::internal
