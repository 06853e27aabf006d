// SPDX-License-Identifier: MIT
#include "ui/main/DesktopScheme.h"

#include <QSettings>

namespace app {

std::optional<ColourScheme> SchemeOfDesktop()
{
    const QSettings user(QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\"
                                        "CurrentVersion\\Themes\\Personalize"),
                         QSettings::NativeFormat);
    const QVariant isLight = user.value(QStringLiteral("AppsUseLightTheme"));
    if (!isLight.isValid())
        return std::nullopt;
    return isLight.toInt() == 0 ? ColourScheme::Dark : ColourScheme::Light;
}

} // namespace app
