#pragma once

#include "crypto/ISymmetricDecryptorEngine.h"
#include "crypto/cryptopp/CSymmetricEngine.h"

#include <crypto++/blowfish.h>
#include <crypto++/modes.h>

#include <cstdint>

namespace quillon::cryptopp::internal {

template <class Cipher, std::uint32_t id, std::int32_t keyBytes, std::int32_t blockBytes,
          std::int32_t ivBytes, std::int32_t extraBytes>
using CSymmetricDecryptorEngine = CSymmetricEngine<crypto::ISymmetricDecryptorEngine, Cipher, id, keyBytes,
                                                   blockBytes, ivBytes, extraBytes>;

/// Blowfish in CBC mode with keys of 448 bits (Schneier, Fast Software Encryption 1993).
using BlowfishDecryptorEngine =
    CSymmetricDecryptorEngine<CryptoPP::CBC_Mode<CryptoPP::Blowfish>::Decryption, 804, 56, 8, 8, 0>;

} // namespace quillon::cryptopp::internal
