#include "crypto/skein/SkeinBlock.h"

#include "crypto/skein/SkeinCore.h"

namespace quillon::skein {

void skein256Block(Skein256State& state, const unsigned char* data, std::uint64_t blockCount,
                   std::uint64_t bytesPerBlock) noexcept
{
    internal::processBlocks(state, data, blockCount, bytesPerBlock);
}

void skein512Block(Skein512State& state, const unsigned char* data, std::uint64_t blockCount,
                   std::uint64_t bytesPerBlock) noexcept
{
    internal::processBlocks(state, data, blockCount, bytesPerBlock);
}

void skein1024Block(Skein1024State& state, const unsigned char* data, std::uint64_t blockCount,
                    std::uint64_t bytesPerBlock) noexcept
{
    internal::processBlocks(state, data, blockCount, bytesPerBlock);
}

} // namespace quillon::skein
