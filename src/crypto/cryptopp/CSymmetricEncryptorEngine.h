#pragma once

#include "crypto/ISymmetricEncryptorEngine.h"
#include "crypto/cryptopp/CSymmetricEngine.h"

#include <crypto++/blowfish.h>
#include <crypto++/modes.h>

#include <cstdint>

namespace quillon::cryptopp::internal {

template <class Cipher, std::uint32_t id, std::int32_t keyBytes, std::int32_t blockBytes,
          std::int32_t ivBytes, std::int32_t extraBytes>
using CSymmetricEncryptorEngine = CSymmetricEngine<crypto::ISymmetricEncryptorEngine, Cipher, id, keyBytes,
                                                   blockBytes, ivBytes, extraBytes>;

/// Blowfish in CBC mode with keys of 448 bits (Schneier, Fast Software Encryption 1993).
using BlowfishEncryptorEngine =
    CSymmetricEncryptorEngine<CryptoPP::CBC_Mode<CryptoPP::Blowfish>::Encryption, 804, 56, 8, 8, 0>;

} // namespace quillon::cryptopp::internal
