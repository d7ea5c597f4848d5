#include "details/pages/toplevel/navigator.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <filesystem>
#include <system_error>

namespace ovsettings {

namespace {

// The running object "Navigator.Addin.1"; an element of a bus name must not begin with a digit.
constexpr char kService[] = "Navigator.Addin._1";
constexpr char kPath[] = "/Navigator/Addin/_1";
constexpr char kInterface[] = "Navigator.Addin";
constexpr char kRefresh[] = "Refresh"; // the add-in's operation number 1

/// Whether a bus is announced. Without one, the bus library would start one of its own.
bool isBusAnnounced() {
    if (qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const std::string runtime = qEnvironmentVariable("XDG_RUNTIME_DIR").toStdString();
    std::error_code error;
    return !runtime.empty() && std::filesystem::is_socket(runtime + "/bus", error);
}

} // namespace

CNavigator::CNavigator() : hasBus_(isBusAnnounced()) {
}

void CNavigator::refresh() const {
    if (!hasBus_)
        return;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(kService), QLatin1String(kPath),
                                                       QLatin1String(kInterface), QLatin1String(kRefresh));
    call.setAutoStartService(false);
    bus.send(call);
}

} // namespace ovsettings
