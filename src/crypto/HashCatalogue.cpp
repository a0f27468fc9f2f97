#include "crypto/HashCatalogue.h"

#include "text/AsciiText.h"

#include <algorithm>
#include <array>

namespace quillon::crypto {
namespace {

constexpr std::array<std::uint32_t, 6> kLibraryIds{kCryptoppLibraryId, 10, 20, 100, 200, kSkeinLibraryId};

enum Trait : unsigned
{
    kWeak = 1,
    kSizeNotInName = 2
};

constexpr HashAlgorithm cryptopp(std::uint32_t algorithmId, std::string_view name, std::int32_t digestBytes,
                                 unsigned traits = 0) noexcept
{
    return {{kCryptoppLibraryId, algorithmId},
            name,
            digestBytes,
            (traits & kWeak) == 0,
            (traits & kSizeNotInName) == 0};
}

constexpr HashAlgorithm skein(std::uint32_t algorithmId, std::string_view name,
                              std::int32_t digestBytes) noexcept
{
    return {{kSkeinLibraryId, algorithmId}, name, digestBytes, true, true};
}

// The gaps between the numbers are reserved.
constexpr HashAlgorithm kCatalogue[] = {
    cryptopp(1, "SHA1", 20, kSizeNotInName),
    cryptopp(10, "SHA-224", 28),
    cryptopp(11, "SHA-256", 32),
    cryptopp(12, "SHA-384", 48),
    cryptopp(13, "SHA-512", 64),
    cryptopp(20, "SHA3-224", 28),
    cryptopp(21, "SHA3-256", 32),
    cryptopp(22, "SHA3-384", 48),
    cryptopp(23, "SHA3-512", 64),
    cryptopp(30, "Tiger-192", 24),
    cryptopp(40, "Whirlpool", 64, kSizeNotInName),
    cryptopp(50, "RIPEMD-128", 16),
    cryptopp(51, "RIPEMD-160", 20),
    cryptopp(52, "RIPEMD-256", 32),
    cryptopp(53, "RIPEMD-320", 40),
    skein(100, "Skein256-224", 28),
    skein(101, "Skein256-256", 32),
    skein(102, "Skein512-224", 28),
    skein(103, "Skein512-256", 32),
    skein(104, "Skein512-384", 48),
    skein(105, "Skein512-512", 64),
    skein(106, "Skein1024-224", 28),
    skein(107, "Skein1024-256", 32),
    skein(108, "Skein1024-384", 48),
    skein(109, "Skein1024-512", 64),
    skein(110, "Skein1024-1024", 128),
    cryptopp(300, "MD2", 16, kWeak | kSizeNotInName),
    cryptopp(301, "MD4", 16, kWeak | kSizeNotInName),
    cryptopp(303, "MD5", 16, kWeak | kSizeNotInName),
    cryptopp(304, "Panama", 32, kWeak | kSizeNotInName),
    cryptopp(400, "Adler32", 4, kWeak | kSizeNotInName),
    cryptopp(401, "CRC32", 4, kWeak | kSizeNotInName),
};

const HashAlgorithm* findRow(std::uint32_t algorithmId) noexcept
{
    const auto* const row = std::ranges::find(
        kCatalogue, algorithmId, [](const HashAlgorithm& candidate) { return candidate.id.alg; });
    return row == std::end(kCatalogue) ? nullptr : row;
}

} // namespace

std::span<const HashAlgorithm> hashCatalogue() noexcept
{
    return kCatalogue;
}

std::string_view getHashAlgName(std::uint32_t algorithmId) noexcept
{
    const HashAlgorithm* const row = findRow(algorithmId);
    return row != nullptr ? row->name : std::string_view();
}

bool findAlgorithmIdByName(std::string_view name, std::uint32_t& algorithmId) noexcept
{
    const auto* const row = std::ranges::find_if(kCatalogue, [name](const HashAlgorithm& candidate) {
        return text::equalsIgnoringAsciiCase(candidate.name, name);
    });
    if (row == std::end(kCatalogue))
        return false;
    algorithmId = row->id.alg;
    return true;
}

bool namesDigestSize(std::uint32_t algorithmId) noexcept
{
    const HashAlgorithm* const row = findRow(algorithmId);
    return row != nullptr && row->tellsSize;
}

bool isHashAlgValid(std::uint32_t algorithmId) noexcept
{
    return findRow(algorithmId) != nullptr;
}

std::uint32_t checkHashAlg(std::uint32_t algorithmId) noexcept
{
    return isHashAlgValid(algorithmId) ? algorithmId : 0;
}

std::int32_t getAlgorithmDigestSize(std::uint32_t algorithmId) noexcept
{
    const HashAlgorithm* const row = findRow(algorithmId);
    return row != nullptr ? row->digestBytes : 0;
}

bool isHashLibraryValid(std::uint32_t libraryId) noexcept
{
    return std::ranges::find(kLibraryIds, libraryId) != kLibraryIds.end();
}

} // namespace quillon::crypto
