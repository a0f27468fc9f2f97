#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillon::platform {

/// The number of a socket, as wide as the system has it.
#ifdef _WIN32
using NativeSocket = std::uintptr_t;
#else
using NativeSocket = int;
#endif

inline constexpr NativeSocket kNoSocket = static_cast<NativeSocket>(-1);

/// A new socket that child processes do not inherit, or kNoSocket. The arguments are those of the system's
/// `socket`.
[[nodiscard]] NativeSocket openSocket(int family, int type, int protocol) noexcept;

/// Ends the connection in both directions. On Unix this wakes whoever waits for its bytes; on Windows a wait
/// for an event of the socket goes on, and only the next call on the socket finds the end. The number stays
/// taken until closeSocket.
void shutDownSocket(NativeSocket socket) noexcept;

void closeSocket(NativeSocket socket) noexcept;

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

/// Where libcurl may be, in the order to look, as names for loadRuntimeLibrary. The first is the place beside
/// the program, with its full path in UTF-8.
[[nodiscard]] std::vector<std::string> curlLibraryPaths();

} // namespace quillon::platform
