#pragma once

#include "crypto/ISymmetricEngine.h"

namespace quillon::crypto {

/// The engine of an ISymmetricDecryptor.
class ISymmetricDecryptorEngine : public ISymmetricEngine
{
};

} // namespace quillon::crypto
