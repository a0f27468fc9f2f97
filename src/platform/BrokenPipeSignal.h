#pragma once

namespace quillon::platform {

/// While one of these lives, its thread may write to a connection that the other side, or another thread, has
/// ended, and gets an error: on Unix the signal for that would end the program. Belongs to one thread.
class BrokenPipeSignalBlock
{
public:
    BrokenPipeSignalBlock() noexcept;
    ~BrokenPipeSignalBlock();
    BrokenPipeSignalBlock(const BrokenPipeSignalBlock&) = delete;
    BrokenPipeSignalBlock& operator=(const BrokenPipeSignalBlock&) = delete;

private:
    bool m_isOurs; ///< false where the signal was blocked before
};

} // namespace quillon::platform
