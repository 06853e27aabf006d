// SPDX-License-Identifier: MIT
#include "ui/main/DesktopMotion.h"

#include "host/Settings.h"
#include "host/Text.h"
#include "ui/main/DesktopPortal-posix.h"
#include "ui/main/DesktopSettings-posix.h"

namespace app {
namespace {

bool isFalse(const std::string &text)
{
    return text == "0" || host::EqualsNoCase(text, "false");
}

} // namespace

bool DesktopAnimates()
{
#ifdef ZELK_DBUS
    if (const auto animates = AnimationsOfPortal())
        return *animates;
#endif
    if (const auto factor = DesktopSetting("kdeglobals", "KDE", "AnimationDurationFactor"))
        return host::ParseSingle(*factor).value_or(1.0f) > 0;
    for (const char *file : {"gtk-4.0/settings.ini", "gtk-3.0/settings.ini"})
        if (const auto animates = DesktopSetting(file, "Settings", "gtk-enable-animations"))
            return !isFalse(*animates);
    return true;
}

} // namespace app
