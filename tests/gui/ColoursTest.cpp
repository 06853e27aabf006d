// SPDX-License-Identifier: MIT
#include "app/Colours.h"

#include "app/IconSet.h"
#include "support/Environment.h"

#include <QApplication>
#include <QIcon>
#include <QPalette>
#include <gtest/gtest.h>

using app::ColourScheme;

namespace {

int brightness(const QPalette &palette, QPalette::ColorGroup group, QPalette::ColorRole role)
{
    return qGray(palette.color(group, role).rgb());
}

} // namespace

TEST(ColoursTest, DesktopSettingsDecideUnlessTheVariableDoes)
{
    const struct
    {
        const char *name, *file, *text, *variable;
        ColourScheme expected;
    } rows[] = {
        {"nothing said", "unused", "", "", ColourScheme::Light},
        {"GTK prefers dark", "gtk-3.0/settings.ini",
         "[Settings]\ngtk-application-prefer-dark-theme=1\n", "", ColourScheme::Dark},
        {"GTK dark theme", "gtk-4.0/settings.ini", "[Settings]\ngtk-theme-name=Adwaita-dark\n", "",
         ColourScheme::Dark},
        {"KDE dark", "kdeglobals", "[Colors:Window]\nBackgroundNormal=42,46,50\n", "",
         ColourScheme::Dark},
        {"KDE light", "kdeglobals", "[Colors:Window]\nBackgroundNormal=239,240,241\n", "",
         ColourScheme::Light},
        {"KDE broken", "kdeglobals", "[Colors:Window]\nBackgroundNormal=dark\n", "",
         ColourScheme::Light},
        {"variable wins", "kdeglobals", "[Colors:Window]\nBackgroundNormal=42,46,50\n", "light",
         ColourScheme::Light},
        {"variable in capitals", "unused", "", "DARK", ColourScheme::Dark},
    };
    for (const auto &row : rows) {
        const support::ScopedHome home;
        home.Folder().Write(std::string(".config/") + row.file, row.text);
        const support::ScopedVariable colours("ZELK_COLORS", row.variable);
        const support::ScopedVariable theme("GTK_THEME", std::nullopt);
        EXPECT_EQ(app::DesktopScheme(app::PaletteOf(ColourScheme::Light)), row.expected)
            << row.name;
    }
    const support::ScopedVariable colours("ZELK_COLORS", std::nullopt);
    EXPECT_EQ(app::DesktopScheme(app::PaletteOf(ColourScheme::Dark)), ColourScheme::Dark);
}

TEST(ColoursTest, TextStandsOutFromItsGround)
{
    for (const ColourScheme scheme : {ColourScheme::Light, ColourScheme::Dark}) {
        const QPalette palette = app::PaletteOf(scheme);
        const struct
        {
            QPalette::ColorGroup group;
            QPalette::ColorRole text, ground;
            int least;
        } pairs[] = {
            {QPalette::Active, QPalette::WindowText, QPalette::Window, 120},
            {QPalette::Active, QPalette::Text, QPalette::Base, 120},
            {QPalette::Active, QPalette::ButtonText, QPalette::Button, 120},
            {QPalette::Active, QPalette::HighlightedText, QPalette::Highlight, 120},
            {QPalette::Active, QPalette::ToolTipText, QPalette::ToolTipBase, 120},
            {QPalette::Disabled, QPalette::WindowText, QPalette::Window, 50},
        };
        for (const auto &pair : pairs)
            EXPECT_GE(std::abs(brightness(palette, pair.group, pair.text) -
                               brightness(palette, pair.group, pair.ground)),
                      pair.least)
                << "role " << pair.text << " on " << pair.ground;
    }
}

TEST(ColoursTest, IconsTakeTheTextColourAndFadeWhenDisabled)
{
    const QIcon icon = app::TintedIcon("save");
    const QPalette palette = QApplication::palette();
    const struct
    {
        QIcon::Mode mode;
        QPalette::ColorGroup group;
    } rows[] = {{QIcon::Normal, QPalette::Active}, {QIcon::Disabled, QPalette::Disabled}};
    for (const auto &row : rows) {
        const QImage image = icon.pixmap(QSize(24, 24), row.mode).toImage();
        ASSERT_EQ(image.size(), QSize(24, 24));
        QColor inked;
        for (int x = 0; x < 24 && !inked.isValid(); ++x)
            if (image.pixelColor(x, 12).alpha() == 255)
                inked = image.pixelColor(x, 12);
        EXPECT_EQ(inked, palette.color(row.group, QPalette::ButtonText));
    }
}
