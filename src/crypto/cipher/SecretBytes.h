#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <span>

namespace quillon::crypto::internal {

/// Overwrites `bytes` with zero in a way that no compiler leaves out.
inline void wipe(std::span<char> bytes) noexcept
{
    for (volatile char& byte : bytes)
        byte = 0;
}

/// One block of the heap that is wiped before it is given back.
class SecretBuffer
{
public:
    SecretBuffer() = default;
    SecretBuffer(const SecretBuffer&) = delete;
    SecretBuffer& operator=(const SecretBuffer&) = delete;
    ~SecretBuffer() { free(); }

    /// Takes `size` uninitialised bytes; false where memory runs out.
    [[nodiscard]] bool allocate(std::size_t size) noexcept
    {
        free();
        m_data.reset(new (std::nothrow) char[size]);
        m_size = m_data != nullptr ? size : 0;
        return m_data != nullptr;
    }

    void free() noexcept
    {
        wipe(bytes());
        m_data.reset();
        m_size = 0;
    }

    [[nodiscard]] std::span<char> bytes() const noexcept { return {m_data.get(), m_size}; }

private:
    std::unique_ptr<char[]> m_data;
    std::size_t m_size = 0;
};

} // namespace quillon::crypto::internal
