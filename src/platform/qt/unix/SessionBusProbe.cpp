#include "platform/qt/unix/SessionBusProbe.h"

#include "platform/unix/Posix.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QtGlobal>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace quillon::platform {
namespace {

/// The value of `key` in one entry of a bus address, as in "unix:path=/run/bus,guid=...", with its escapes
/// undone (freedesktop.org, "Server Addresses" of D-Bus).
QByteArray valueIn(const QByteArray& entry, const QByteArray& key)
{
    for (const QByteArray& pair : entry.mid(entry.indexOf(':') + 1).split(',')) {
        if (pair.startsWith(key + '='))
            return QByteArray::fromPercentEncoding(pair.mid(key.size() + 1));
    }
    return {};
}

/// The name of the bus's socket, in the form of sun_path; empty where the bus has none.
QByteArray socketName()
{
    for (const QByteArray& entry : qgetenv("DBUS_SESSION_BUS_ADDRESS").split(';')) {
        if (!entry.startsWith("unix:"))
            continue;
        if (QByteArray path = valueIn(entry, "path"); !path.isEmpty())
            return path;
        if (const QByteArray name = valueIn(entry, "abstract"); !name.isEmpty())
            return '\0' + name;
    }
    return qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ? qgetenv("XDG_RUNTIME_DIR") + "/bus"
                                                                   : QByteArray();
}

bool connectTo(int descriptor, const QByteArray& name)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const auto size = static_cast<std::size_t>(name.size());
    if (size == 0 || size >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, name.constData(), size);
    // The length tells where an abstract name ends; a path ends with its zero byte, which may be left out.
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + size);
    return connect(descriptor, reinterpret_cast<const sockaddr*>(&address), length) == 0;
}

bool say(int descriptor, std::string_view words)
{
    return send(descriptor, words.data(), words.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(words.size());
}

bool hears(int descriptor, std::chrono::milliseconds patience)
{
    pollfd wait{descriptor, POLLIN, 0};
    char answer = 0;
    return poll(&wait, 1, static_cast<int>(patience.count())) == 1 && recv(descriptor, &answer, 1, 0) == 1;
}

} // namespace

bool answersSessionBus(std::chrono::milliseconds patience)
{
    using namespace std::string_view_literals;
    const Descriptor bus(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    // The zero byte begins every talk with a bus; the line asks which ways to log in there are.
    return connectTo(bus.get(), socketName()) && say(bus.get(), "\0AUTH\r\n"sv) && hears(bus.get(), patience);
}

} // namespace quillon::platform
