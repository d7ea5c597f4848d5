#include "dialog/pages/designs/navigator.h"

#include "platform/descriptor.h"
#include "platform/environment.h"

#include <QtCore/QByteArray>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <sys/poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace ovsettings {

namespace {

// The running object "Navigator.Addin.1"; an element of a bus name must not begin with a digit.
constexpr char kService[] = "Navigator.Addin._1";
constexpr char kPath[] = "/Navigator/Addin/_1";
constexpr char kInterface[] = "Navigator.Addin";
constexpr char kRefresh[] = "Refresh"; // the add-in's operation number 1

constexpr int kLongestWait = 200; // milliseconds

/// The address of the session bus, as the bus library looks for it; empty if none is announced. Without one,
/// that library would start a bus of its own.
std::string busAddress() {
    const std::string address = platform::environmentVariable("DBUS_SESSION_BUS_ADDRESS").value_or("");
    const std::string runtime = platform::environmentVariable("XDG_RUNTIME_DIR").value_or("");
    return address.empty() && !runtime.empty() ? "unix:path=" + runtime + "/bus" : address;
}

/// The local socket of an address. @param length receives the length of the socket's address, 0 if it names
/// none.
sockaddr_un socketOf(std::string_view address, socklen_t& length) {
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    length = 0;
    for (const auto& [key, prefix] :
         {std::pair{std::string_view("unix:path="), std::string_view()},
          std::pair{std::string_view("unix:abstract="), std::string_view("\0", 1)}}) {
        if (!address.starts_with(key))
            continue;
        const std::string_view rest = address.substr(key.size());
        const std::string text = std::string(prefix) + std::string(rest.substr(0, rest.find_first_of(",;")));
        // In an address, bytes may be escaped with "%".
        const QByteArray path = QByteArray::fromPercentEncoding(QByteArray::fromStdString(text));
        if (static_cast<std::size_t>(path.size()) >= sizeof name.sun_path)
            break;
        std::copy(path.begin(), path.end(), name.sun_path);
        length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) +
                                        static_cast<std::size_t>(path.size()) + (prefix.empty() ? 1 : 0));
    }
    return name;
}

/// Whether a bus greets a caller in time. The bus library would wait for ever for one that accepts and stays
/// silent, on the thread of the user.
bool answers(const std::string& address) {
    socklen_t length = 0;
    const sockaddr_un name = socketOf(address, length);
    if (length == 0)
        return false;
    const platform::Descriptor bus(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!bus.valid() || connect(bus.get(), reinterpret_cast<const sockaddr*>(&name), length) != 0)
        return false;
    // Its method lists what it takes; any answer will do.
    constexpr std::string_view kGreeting("\0AUTH\r\n", 7);
    if (send(bus.get(), kGreeting.data(), kGreeting.size(), MSG_NOSIGNAL) < 0)
        return false;
    pollfd reply{bus.get(), POLLIN, 0};
    char first = 0;
    return poll(&reply, 1, kLongestWait) == 1 && recv(bus.get(), &first, 1, 0) == 1;
}

} // namespace

Navigator::Navigator() : address_(busAddress()) {
}

void Navigator::refresh() const {
    if (address_.empty() || !answers(address_))
        return;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(kService), QLatin1String(kPath),
                                                       QLatin1String(kInterface), QLatin1String(kRefresh));
    call.setAutoStartService(false);
    bus.send(call);
}

} // namespace ovsettings
