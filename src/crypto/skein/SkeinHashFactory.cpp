#include "crypto/skein/SkeinHashFactory.h"

#include "crypto/HashCatalogue.h"
#include "crypto/IHashFactoryBase.h"
#include "crypto/skein/SkeinHashEngines.h"

namespace quillon::skein {
namespace {

using crypto::internal::CalculatorMaker;
using crypto::internal::makeCalculator;
using internal::Hash;

constexpr CalculatorMaker kMakers[] = {
    {100, &makeCalculator<Hash<Skein256_224HashEngine>>},
    {101, &makeCalculator<Hash<Skein256_256HashEngine>>},
    {102, &makeCalculator<Hash<Skein512_224HashEngine>>},
    {103, &makeCalculator<Hash<Skein512_256HashEngine>>},
    {104, &makeCalculator<Hash<Skein512_384HashEngine>>},
    {105, &makeCalculator<Hash<Skein512_512HashEngine>>},
    {106, &makeCalculator<Hash<Skein1024_224HashEngine>>},
    {107, &makeCalculator<Hash<Skein1024_256HashEngine>>},
    {108, &makeCalculator<Hash<Skein1024_384HashEngine>>},
    {109, &makeCalculator<Hash<Skein1024_512HashEngine>>},
    {110, &makeCalculator<Hash<Skein1024_1024HashEngine>>},
};

} // namespace

crypto::HashResult CHashFactory::create(std::uint32_t libraryId, std::uint32_t algorithmId,
                                        crypto::IHash** calculator) const
{
    return crypto::internal::createCalculator(kMakers, crypto::kSkeinLibraryId, libraryId, algorithmId,
                                              calculator);
}

} // namespace quillon::skein
