#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillon::tests {

/// `count` bytes, byte i being i mod 251, a period that no block size shares.
inline std::string patternBytes(std::size_t count)
{
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<char>(i % 251);
    return bytes;
}

/// Hexadecimal text in capitals.
inline std::string hexOf(std::string_view bytes)
{
    std::string hex;
    for (const char c : bytes) {
        for (const int shift : {4, 0})
            hex += "0123456789ABCDEF"[(static_cast<unsigned char>(c) >> shift) & 0xF];
    }
    return hex;
}

/// The bytes of a hexadecimal text in either case; throws std::runtime_error where it is none.
inline std::string bytesFromHex(std::string_view hex)
{
    std::string bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        std::size_t used = 0;
        bytes += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), &used, 16));
        if (used != 2)
            throw std::runtime_error("not hexadecimal: " + std::string(hex));
    }
    return bytes;
}

} // namespace quillon::tests
