#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace thisapp {

/// Names a hash algorithm: the library that provides it and the algorithm within the catalogue. Both are 0
/// where no algorithm is chosen.
struct SHashAlgId
{
    std::uint32_t lib = 0;
    std::uint32_t alg = 0;

    friend constexpr bool operator==(const SHashAlgId&, const SHashAlgId&) noexcept = default;
};

/// An algorithm that the user can choose.
struct SHashAlgInfo
{
    SHashAlgId id;
    bool strong = false; ///< false for checksums and for digests that are broken

    friend constexpr bool operator==(const SHashAlgInfo&, const SHashAlgInfo&) noexcept = default;
};

} // namespace thisapp

/// The vocabulary of hash algorithms: what is stored in settings, given on the command line and shown in
/// lists. The numbers and names never change. Any thread may call any function.
namespace quillon::crypto {

inline constexpr std::uint32_t kCryptoppLibraryId = 1;
inline constexpr std::uint32_t kSkeinLibraryId = 300;

/// SHA-256.
inline constexpr thisapp::SHashAlgId kDefaultHashAlg{kCryptoppLibraryId, 11};

/// One row of the catalogue.
struct HashAlgorithm
{
    thisapp::SHashAlgId id;
    std::string_view name;
    std::int32_t digestBytes;
    bool strong; ///< false for checksums and for digests that are broken
};

/// All algorithms, in the order in which users see them and names are looked up.
[[nodiscard]] std::span<const HashAlgorithm> hashCatalogue() noexcept;

/// The name of an algorithm; empty for an unknown id.
[[nodiscard]] std::string_view getHashAlgName(std::uint32_t algorithmId) noexcept;

/// Looks a name up without regard to case. Where there is none the answer is false and `algorithmId` stays.
[[nodiscard]] bool findAlgorithmIdByName(std::string_view name, std::uint32_t& algorithmId) noexcept;

[[nodiscard]] bool isHashAlgValid(std::uint32_t algorithmId) noexcept;

/// `algorithmId` itself where it is known, else 0.
[[nodiscard]] std::uint32_t checkHashAlg(std::uint32_t algorithmId) noexcept;

/// Length of the digest in bytes; 0 for an unknown id.
[[nodiscard]] std::int32_t getAlgorithmDigestSize(std::uint32_t algorithmId) noexcept;

/// Whether a stored value may hold this library id. Some of these ids are reserved: no library provides them.
[[nodiscard]] bool isHashLibraryValid(std::uint32_t libraryId) noexcept;

} // namespace quillon::crypto
