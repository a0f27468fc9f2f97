#include "platform/Socket.h"

#include <sys/socket.h>
#include <unistd.h>

namespace quillon::platform {

NativeSocket openSocket(int family, int type, int protocol) noexcept
{
    return socket(family, type | SOCK_CLOEXEC, protocol);
}

void shutDownSocket(NativeSocket socket) noexcept
{
    shutdown(socket, SHUT_RDWR);
}

void closeSocket(NativeSocket socket) noexcept
{
    close(socket);
}

} // namespace quillon::platform
