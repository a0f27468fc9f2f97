#include "crypto/skein/SkeinBlock.h"

#include "crypto/skein/SkeinCore.h"

namespace quillon::skein {

template <std::size_t kWords>
void skeinBlock(SkeinState<kWords>& state, const unsigned char* data, std::uint64_t blockCount,
                std::uint64_t bytesPerBlock) noexcept
{
    internal::processBlocks(state, data, blockCount, bytesPerBlock);
}

template void skeinBlock(Skein256State&, const unsigned char*, std::uint64_t, std::uint64_t) noexcept;
template void skeinBlock(Skein512State&, const unsigned char*, std::uint64_t, std::uint64_t) noexcept;
template void skeinBlock(Skein1024State&, const unsigned char*, std::uint64_t, std::uint64_t) noexcept;

} // namespace quillon::skein
