// SPDX-License-Identifier: MIT
#include "ui/main/DesktopScheme.h"

#include "support/Environment.h"
#include "ui/main/DesktopMotion.h"

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

TEST(DesktopMotionTest, DesktopSettingsDecideAboutAnimations)
{
    const struct
    {
        const char *name, *file, *text;
        bool expected;
    } rows[] = {
        {"no setting", "unused", "", true},
        {"KDE without", "kdeglobals", "[KDE]\nAnimationDurationFactor=0\n", false},
        {"KDE slow", "kdeglobals", "[KDE]\nAnimationDurationFactor=1.414\n", true},
        {"GTK without", "gtk-3.0/settings.ini", "[Settings]\ngtk-enable-animations=0\n", false},
        {"GTK in words", "gtk-4.0/settings.ini", "[Settings]\ngtk-enable-animations=false\n",
         false},
        {"GTK with", "gtk-4.0/settings.ini", "[Settings]\ngtk-enable-animations=1\n", true},
    };
    for (const auto &row : rows) {
        const support::ScopedHome home;
        home.Folder().Write(std::string(".config/") + row.file, row.text);
        const support::ScopedVariable bus("DBUS_SESSION_BUS_ADDRESS", "autolaunch:");
        EXPECT_EQ(app::DesktopAnimates(), row.expected) << row.name;
    }
}
