#include "platform/BrokenPipeSignal.h"

namespace quillon::platform {

// There is no such signal here.
BrokenPipeSignalBlock::BrokenPipeSignalBlock() noexcept
    : m_isOurs(false)
{
}

BrokenPipeSignalBlock::~BrokenPipeSignalBlock() = default;

} // namespace quillon::platform
