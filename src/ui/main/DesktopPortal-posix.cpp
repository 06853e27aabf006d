// SPDX-License-Identifier: MIT
#include "ui/main/DesktopPortal-posix.h"

#include "host/Disk.h"
#include "host/Folders.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include <string>

namespace app {
namespace {

constexpr int kMilliseconds = 100;
constexpr unsigned kPrefersDark = 1, kPrefersLight = 2;

/// Returns the address of the user's session bus, "" for none. If the D-Bus library searched for
/// the address itself, it would start a missing bus.
std::string busAddress()
{
    const std::string address = host::Environment("DBUS_SESSION_BUS_ADDRESS");
    if (!address.empty())
        return address.starts_with("autolaunch:") ? std::string() : address;
    const std::string socket = host::Environment("XDG_RUNTIME_DIR") + "/bus";
    return host::disk::KindOf(socket) == host::disk::Kind::Other ? "unix:path=" + socket
                                                                 : std::string();
}

QDBusMessage ask(const QDBusConnection &bus, const char *method)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QString::fromLatin1(method));
    call.setArguments(
        {QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme")});
    call.setAutoStartService(false);
    return bus.call(call, QDBus::Block, kMilliseconds);
}

/// Removes all variants around a value.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<ColourScheme> askBus(const QDBusConnection &bus)
{
    QDBusMessage answer = ask(bus, "ReadOne");
    if (answer.errorName() == QLatin1String("org.freedesktop.DBus.Error.UnknownMethod"))
        answer = ask(bus, "Read"); // the name in older portals
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return std::nullopt;
    switch (unwrapped(answer.arguments().constFirst()).toUInt()) {
    case kPrefersDark:
        return ColourScheme::Dark;
    case kPrefersLight:
        return ColourScheme::Light;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<ColourScheme> SchemeOfPortal()
{
    const std::string address = busAddress();
    if (address.empty())
        return std::nullopt;
    const QString name = QStringLiteral("zelk-portal");
    const auto scheme =
        askBus(QDBusConnection::connectToBus(QString::fromStdString(address), name));
    QDBusConnection::disconnectFromBus(name);
    return scheme;
}

} // namespace app
