#include "crypto/cipher/CipherHeader.h"

#include "crypto/cipher/PasswordKey.h"

#include <algorithm>
#include <chrono>
#include <concepts>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace quillon::crypto::internal {
namespace {

constexpr std::uint16_t kVersion = 2;
constexpr std::uint32_t kDigestAlgorithm = 21; // SHA3-256

constexpr std::size_t kDigestAt = 2;
constexpr std::size_t kDigestBytes = 32;
constexpr std::size_t kLengthAt = 40;
constexpr std::size_t kSaltAt = 48;
constexpr std::size_t kSaltBytes = 6;

constexpr std::size_t kDigestBlockBytes = 256;
constexpr std::size_t kBlockLengthAt = 4;
constexpr std::size_t kBlockMarkerAt = 12;

template <std::unsigned_integral Number>
void putLittleEndian(Number number, char* bytes) noexcept
{
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        bytes[i] = static_cast<char>((number >> (8 * i)) & 0xFF);
}

std::uint64_t takeLittleEndian64(const char* bytes) noexcept
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i)
        number |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    return number;
}

/// The digest that ties a head to its cipher and to the length of its data.
HashResult headerDigest(std::uint32_t algorithmId, std::uint64_t plainBytes, std::vector<char>& digest)
{
    std::array<char, kDigestBlockBytes> block{};
    putLittleEndian(algorithmId, block.data());
    putLittleEndian(plainBytes, block.data() + kBlockLengthAt);
    // In pieces, so that the marker does not show among the program's texts.
    char* marker = block.data() + kBlockMarkerAt;
    for (const std::string_view piece : {"Kes", "trum", "-box"})
        marker = std::ranges::copy(piece, marker).out;
    return digestOf(kDigestAlgorithm, block, digest);
}

/// A salt only has to differ from one run to the next; nothing rests on its being hard to guess.
void fillWithSalt(std::span<char> salt)
{
    // Once a thread, since some runtimes keep the state of rand by thread. A seed at each call would repeat
    // the salt where the clock has not moved on.
    thread_local const bool isSeeded = [] {
        std::srand(static_cast<unsigned>(std::chrono::system_clock::now().time_since_epoch().count()));
        return true;
    }();
    static_cast<void>(isSeeded);
    // Runtimes agree on the low 15 bits only.
    constexpr int kRandMask = 0x7FFF;
    for (char& byte : salt)
        byte = static_cast<char>((std::rand() & kRandMask) * 256 / (kRandMask + 1));
}

} // namespace

HashResult makeCipherHeader(std::uint32_t algorithmId, std::int64_t plainBytes, bool useSalt,
                            CipherHeader& header)
{
    header.fill('\0');
    putLittleEndian(kVersion, header.data());
    putLittleEndian(static_cast<std::uint64_t>(plainBytes), header.data() + kLengthAt);
    if (useSalt)
        fillWithSalt(std::span(header).subspan<kSaltAt, kSaltBytes>());
    std::vector<char> digest;
    const HashResult result = headerDigest(algorithmId, static_cast<std::uint64_t>(plainBytes), digest);
    std::ranges::copy(digest, header.begin() + kDigestAt);
    return result;
}

HashResult readCipherHeader(std::uint32_t algorithmId, std::span<const char, kCipherHeaderBytes> header,
                            std::int64_t& plainBytes)
{
    const std::uint64_t length = takeLittleEndian64(header.data() + kLengthAt);
    std::vector<char> digest;
    if (const HashResult result = headerDigest(algorithmId, length, digest); !succeeded(result))
        return result;
    if (!std::ranges::equal(digest, header.subspan<kDigestAt, kDigestBytes>()))
        return hashError(err::kCipherHeaderMismatch);
    plainBytes = static_cast<std::int64_t>(length);
    return {};
}

} // namespace quillon::crypto::internal
