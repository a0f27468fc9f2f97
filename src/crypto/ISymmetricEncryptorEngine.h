#pragma once

#include "crypto/ISymmetricEngine.h"

namespace quillon::crypto {

/// The engine of an ISymmetricEncryptor.
class ISymmetricEncryptorEngine : public ISymmetricEngine
{
};

} // namespace quillon::crypto
