#pragma once

#include "crypto/HashDriver.h"
#include "crypto/HashResult.h"
#include "crypto/IHash.h"
#include "crypto/ISymmetricEngine.h"
#include "io/IIStream.h"

#include <cstdint>
#include <vector>

/// What every encryptor and decryptor does, whatever its engine.
namespace quillon::crypto::internal {

/// The arguments of one run; see ISymmetricEncryptor::encrypt.
struct CipherJob
{
    io::internal::IIStream<char>* input;
    io::internal::IOStream<char>* output;
    const std::vector<char>& key;
    const std::vector<char>& iv;
    std::int32_t bufferBytes;
    std::uint32_t intervalMs;
    IHashCallback* callback;
    void* userData;
};

/// ISymmetricEncryptor::encrypt on `engine` and `state`.
HashResult encryptStream(ISymmetricEngine& engine, RunState& state, const CipherJob& job, bool useSalt);

/// ISymmetricDecryptor::decrypt on `engine` and `state`.
HashResult decryptStream(ISymmetricEngine& engine, RunState& state, const CipherJob& job);

} // namespace quillon::crypto::internal
