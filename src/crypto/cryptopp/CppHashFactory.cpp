#include "crypto/cryptopp/CppHashFactory.h"

#include "crypto/HashCatalogue.h"
#include "crypto/IHashFactoryBase.h"
#include "crypto/cryptopp/CHashEngine.h"

// Crypto++ offers MD2, MD4 and MD5 only to those who say that they know of their weakness.
#define CRYPTOPP_ENABLE_NAMESPACE_WEAK 1
#include <cryptopp/adler32.h>
#include <cryptopp/keccak.h>
#include <cryptopp/md2.h>
#include <cryptopp/md4.h>
#include <cryptopp/md5.h>
#include <cryptopp/panama.h>
#include <cryptopp/ripemd.h>
#include <cryptopp/sha.h>
#include <cryptopp/tiger.h>
#include <cryptopp/whrlpool.h>

namespace quillon::cryptopp {
namespace {

using crypto::internal::CalculatorMaker;
using crypto::internal::makeCalculator;

template <class Alg, std::uint32_t id>
constexpr CalculatorMaker maker() noexcept
{
    return {id, &makeCalculator<internal::CHash<internal::CHashEngine<Alg, id>>>};
}

constexpr CalculatorMaker kMakers[] = {
    maker<CryptoPP::SHA1, 1>(),
    maker<CryptoPP::SHA224, 10>(),
    maker<CryptoPP::SHA256, 11>(),
    maker<CryptoPP::SHA384, 12>(),
    maker<CryptoPP::SHA512, 13>(),
    // Our SHA-3 rows keep the padding of the Keccak submission, which Crypto++ calls Keccak since its own
    // SHA3 classes follow FIPS 202.
    maker<CryptoPP::Keccak_224, 20>(),
    maker<CryptoPP::Keccak_256, 21>(),
    maker<CryptoPP::Keccak_384, 22>(),
    maker<CryptoPP::Keccak_512, 23>(),
    maker<CryptoPP::Tiger, 30>(),
    maker<CryptoPP::Whirlpool, 40>(),
    maker<CryptoPP::RIPEMD128, 50>(),
    maker<CryptoPP::RIPEMD160, 51>(),
    maker<CryptoPP::RIPEMD256, 52>(),
    maker<CryptoPP::RIPEMD320, 53>(),
    maker<CryptoPP::Weak1::MD2, 300>(),
    maker<CryptoPP::Weak1::MD4, 301>(),
    maker<CryptoPP::Weak1::MD5, 303>(),
    maker<CryptoPP::Weak::PanamaHash<CryptoPP::LittleEndian>, 304>(),
    maker<CryptoPP::Adler32, 400>(),
    {401, &makeCalculator<internal::CHash<CCrc32HashEngine>>},
};

} // namespace

crypto::HashResult CHashFactory::create(std::uint32_t libraryId, std::uint32_t algorithmId,
                                        crypto::IHash** calculator) const
{
    return crypto::internal::createCalculator(kMakers, crypto::kCryptoppLibraryId, libraryId, algorithmId,
                                              calculator);
}

} // namespace quillon::cryptopp
