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

QDBusMessage ask(const QDBusConnection &bus, const char *method, const char *space, const char *key)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QString::fromLatin1(method));
    call.setArguments({QString::fromLatin1(space), QString::fromLatin1(key)});
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

/// Returns a setting; an invalid value if the portal does not know it.
QVariant askBus(const QDBusConnection &bus, const char *space, const char *key)
{
    QDBusMessage answer = ask(bus, "ReadOne", space, key);
    if (answer.errorName() == QLatin1String("org.freedesktop.DBus.Error.UnknownMethod"))
        answer = ask(bus, "Read", space, key); // the name in older portals
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return {};
    return unwrapped(answer.arguments().constFirst());
}

QVariant portalSetting(const char *space, const char *key)
{
    const std::string address = busAddress();
    if (address.empty())
        return {};
    const QString name = QStringLiteral("zelk-portal");
    const QVariant value =
        askBus(QDBusConnection::connectToBus(QString::fromStdString(address), name), space, key);
    QDBusConnection::disconnectFromBus(name);
    return value;
}

} // namespace

std::optional<ColourScheme> SchemeOfPortal()
{
    switch (portalSetting("org.freedesktop.appearance", "color-scheme").toUInt()) {
    case kPrefersDark:
        return ColourScheme::Dark;
    case kPrefersLight:
        return ColourScheme::Light;
    default:
        return std::nullopt;
    }
}

std::optional<bool> AnimationsOfPortal()
{
    const QVariant reduced = portalSetting("org.freedesktop.appearance", "reduced-motion");
    if (reduced.isValid() && reduced.toUInt() != 0)
        return false;
    const QVariant animates = portalSetting("org.gnome.desktop.interface", "enable-animations");
    return animates.isValid() ? std::optional(animates.toBool()) : std::nullopt;
}

} // namespace app
