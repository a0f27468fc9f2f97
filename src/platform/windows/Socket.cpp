#include "platform/Socket.h"

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

} // namespace quillon::platform
