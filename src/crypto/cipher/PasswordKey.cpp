#include "crypto/cipher/PasswordKey.h"

#include "crypto/HashCatalogue.h"
#include "crypto/IHash.h"
#include "crypto/cryptopp/CppHashFactory.h"
#include "io/IStreamBytes.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>

namespace quillon::crypto::internal {
namespace {

struct SizedHash
{
    std::int32_t digestBytes;
    std::uint32_t algorithmId;
};

constexpr SizedHash kHashes[] = {{28, 20}, {32, 21}, {48, 22}};
constexpr std::uint32_t kLargestHash = 23;

HashResult passwordDigest(const char* password, std::uint32_t algorithmId, std::vector<char>& digest)
{
    if (password == nullptr)
        return hashError(err::kNullPointer);
    const std::string_view text(password);
    const HashResult result = digestOf(algorithmId, text, digest);
    if (text.empty())
        std::ranges::fill(digest, '\0');
    return result;
}

} // namespace

HashResult digestOf(std::uint32_t algorithmId, std::span<const char> message, std::vector<char>& digest)
{
    IHash* created = nullptr;
    const HashResult found = cryptopp::CHashFactory().create(kCryptoppLibraryId, algorithmId, &created);
    const std::unique_ptr<IHash> hash(created);
    if (!succeeded(found))
        return found;
    io::IStreamBytes stream;
    stream.setBytes({message.begin(), message.end()});
    if (const HashResult calculated = hash->calculate(&stream); !succeeded(calculated))
        return calculated;
    digest.assign(static_cast<std::size_t>(hash->getDigestSize()), '\0');
    return hash->getDigest(digest.data(), hash->getDigestSize());
}

std::uint32_t hashForKeySize(std::int32_t keyBytes) noexcept
{
    const auto* const hash = std::ranges::lower_bound(kHashes, keyBytes, {}, &SizedHash::digestBytes);
    return hash != std::end(kHashes) ? hash->algorithmId : kLargestHash;
}

HashResult keyFromPassword(const char* password, std::uint32_t algorithmId, std::int32_t keyBytes,
                           std::vector<char>& key)
{
    std::vector<char> digest;
    const HashResult hashed = passwordDigest(password, algorithmId, digest);
    if (!succeeded(hashed))
        return {hashed.primary, err::programError(err::kKeyDerivationFailed)};
    const auto used = std::min<std::ptrdiff_t>(keyBytes, std::ssize(digest));
    key.assign(digest.begin(), digest.begin() + used);
    return {};
}

} // namespace quillon::crypto::internal
