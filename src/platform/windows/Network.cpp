#include "platform/Network.h"

#include "platform/Process.h"

#include <winsock2.h>

namespace quillon::platform {

NativeSocket openSocket(int family, int type, int protocol) noexcept
{
    return WSASocketW(family, type, protocol, nullptr, 0, WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
}

void shutDownSocket(NativeSocket socket) noexcept
{
    shutdown(socket, SD_BOTH);
}

void closeSocket(NativeSocket socket) noexcept
{
    closesocket(socket);
}

// There is no such signal here.
BrokenPipeSignalBlock::BrokenPipeSignalBlock() noexcept
    : m_isOurs(false)
{
}

BrokenPipeSignalBlock::~BrokenPipeSignalBlock() = default;

// Only the library that came with the program: what lies in other folders may be anybody's.
std::vector<std::string> curlLibraryPaths()
{
    const std::string program = programPath();
    if (program.empty())
        return {};
    return {program.substr(0, program.rfind('\\') + 1) + "libcurl.dll"};
}

} // namespace quillon::platform
