// SPDX-License-Identifier: MIT
#include "ui/main/DesktopScheme.h"

#include "support/Environment.h"

#include <gtest/gtest.h>

using app::ColourScheme;

TEST(DesktopSchemeTest, DesktopSettingsDecideTheScheme)
{
    const struct
    {
        const char *name, *file, *text;
        std::optional<ColourScheme> expected;
    } rows[] = {
        {"no setting", "unused", "", std::nullopt},
        {"GTK prefers dark", "gtk-3.0/settings.ini",
         "[Settings]\ngtk-application-prefer-dark-theme=1\n", ColourScheme::Dark},
        {"GTK dark theme", "gtk-4.0/settings.ini", "[Settings]\ngtk-theme-name=Adwaita-dark\n",
         ColourScheme::Dark},
        {"KDE dark", "kdeglobals", "[Colors:Window]\nBackgroundNormal=42,46,50\n",
         ColourScheme::Dark},
        {"KDE light", "kdeglobals", "[Colors:Window]\nBackgroundNormal=239,240,241\n",
         ColourScheme::Light},
        {"KDE broken", "kdeglobals", "[Colors:Window]\nBackgroundNormal=dark\n", std::nullopt},
    };
    for (const auto &row : rows) {
        const support::ScopedHome home;
        home.Folder().Write(std::string(".config/") + row.file, row.text);
        const support::ScopedVariable theme("GTK_THEME", std::nullopt);
        const support::ScopedVariable bus("DBUS_SESSION_BUS_ADDRESS", "autolaunch:");
        EXPECT_EQ(app::SchemeOfDesktop(), row.expected) << row.name;
    }
}
