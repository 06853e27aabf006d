// SPDX-License-Identifier: MIT
#include "ui/main/DesktopScheme.h"

#include "host/Folders.h"
#include "host/Text.h"
#include "ui/main/DesktopPortal-posix.h"
#include "ui/main/DesktopSettings-posix.h"

#include <QColor>
#include <QStringList>

#include <string>

namespace app {
namespace {

bool namesDark(const std::string &text)
{
    return host::ToUpper(text).find("DARK") != std::string::npos;
}

/// KDE stores the window background as "red,green,blue".
std::optional<ColourScheme> kdeScheme()
{
    const auto text = DesktopSetting("kdeglobals", "Colors:Window", "BackgroundNormal");
    if (!text)
        return std::nullopt;
    const QStringList parts = QString::fromStdString(*text).split(QLatin1Char(','));
    if (parts.size() < 3)
        return std::nullopt;
    const QColor colour(parts[0].toInt(), parts[1].toInt(), parts[2].toInt());
    return colour.lightness() < 128 ? ColourScheme::Dark : ColourScheme::Light;
}

std::optional<ColourScheme> gtkScheme()
{
    if (const std::string theme = host::Environment("GTK_THEME"); !theme.empty())
        return namesDark(theme) ? ColourScheme::Dark : ColourScheme::Light;
    for (const char *file : {"gtk-4.0/settings.ini", "gtk-3.0/settings.ini"}) {
        const auto prefers = DesktopSetting(file, "Settings", "gtk-application-prefer-dark-theme");
        if (prefers && (*prefers == "1" || host::EqualsNoCase(*prefers, "true")))
            return ColourScheme::Dark;
        if (const auto theme = DesktopSetting(file, "Settings", "gtk-theme-name");
            theme && namesDark(*theme))
            return ColourScheme::Dark;
    }
    return std::nullopt;
}

} // namespace

std::optional<ColourScheme> SchemeOfDesktop()
{
#ifdef ZELK_DBUS
    if (const auto scheme = SchemeOfPortal())
        return scheme;
#endif
    if (const auto scheme = kdeScheme())
        return scheme;
    return gtkScheme();
}

} // namespace app
