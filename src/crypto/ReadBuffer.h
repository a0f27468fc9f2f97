#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace quillon::crypto::internal {

/// One uninitialised block of the heap that starts on a memory page. The kernel's copy into a block that
/// starts just past a page boundary, as large blocks of the heap do, was measured to take several times as
/// long.
class ReadBuffer
{
public:
    /// Throws std::bad_alloc where memory runs out.
    explicit ReadBuffer(std::size_t bytes)
        : m_data(static_cast<char*>(::operator new(bytes, kPageAlignment)))
    {
    }

    [[nodiscard]] char* data() const noexcept { return m_data.get(); }

private:
    static constexpr std::align_val_t kPageAlignment{4096};

    struct Release
    {
        void operator()(char* block) const noexcept { ::operator delete(block, kPageAlignment); }
    };

    std::unique_ptr<char, Release> m_data;
};

} // namespace quillon::crypto::internal
