#pragma once

#include "crypto/skein/SkeinCoreEngine.h"

/// The engines, named by state size and digest size in bits. The first argument of the base is the core of
/// the state size, then come the algorithm id and the digest size.
namespace quillon::skein {

class Skein256_224HashEngine final : public internal::SkeinCoreEngine<internal::Skein256Core, 100, 224>
{
};

class Skein256_256HashEngine final : public internal::SkeinCoreEngine<internal::Skein256Core, 101, 256>
{
};

class Skein512_224HashEngine final : public internal::SkeinCoreEngine<internal::Skein512Core, 102, 224>
{
};

class Skein512_256HashEngine final : public internal::SkeinCoreEngine<internal::Skein512Core, 103, 256>
{
};

class Skein512_384HashEngine final : public internal::SkeinCoreEngine<internal::Skein512Core, 104, 384>
{
};

class Skein512_512HashEngine final : public internal::SkeinCoreEngine<internal::Skein512Core, 105, 512>
{
};

class Skein1024_224HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 106, 224>
{
};

class Skein1024_256HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 107, 256>
{
};

class Skein1024_384HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 108, 384>
{
};

class Skein1024_512HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 109, 512>
{
};

class Skein1024_1024HashEngine final : public internal::SkeinCoreEngine<internal::Skein1024Core, 110, 1024>
{
};

} // namespace quillon::skein
