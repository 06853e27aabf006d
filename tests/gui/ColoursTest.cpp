// SPDX-License-Identifier: MIT
#include "ui/main/Colours.h"

#include "support/Environment.h"
#include "ui/dialogs/ReportView.h"
#include "ui/main/IconSet.h"

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

TEST(ColoursTest, VariableOverridesThePlatform)
{
    const support::ScopedHome home;
    const struct
    {
        const char *variable;
        ColourScheme platform, expected;
    } rows[] = {
        {"light", ColourScheme::Dark, ColourScheme::Light},
        {"DARK", ColourScheme::Light, ColourScheme::Dark},
        {"", ColourScheme::Dark, ColourScheme::Dark},
        {"blue", ColourScheme::Dark, ColourScheme::Dark},
    };
    for (const auto &row : rows) {
        const support::ScopedVariable colours("ZELK_COLORS", row.variable);
        EXPECT_EQ(app::DesktopScheme(app::PaletteOf(row.platform)), row.expected) << row.variable;
    }
}

TEST(ColoursTest, TextContrastsWithItsBackground)
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
            {QPalette::Inactive, QPalette::HighlightedText, QPalette::Highlight, 120},
            {QPalette::Inactive, QPalette::Highlight, QPalette::Base, 40},
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

TEST(ColoursTest, SelectionsWithoutFocusAreGreyExceptInReports)
{
    for (const ColourScheme scheme : {ColourScheme::Light, ColourScheme::Dark}) {
        const QPalette palette = app::PaletteOf(scheme);
        EXPECT_LT(palette.color(QPalette::Inactive, QPalette::Highlight).hsvSaturation(), 40);
        EXPECT_GT(palette.color(QPalette::Active, QPalette::Highlight).hsvSaturation(), 100);
    }
    const validation::ReportView report;
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText})
        EXPECT_EQ(report.palette().color(QPalette::Inactive, role),
                  report.palette().color(QPalette::Active, role))
            << "the find bar has the focus while the report shows what was found";
}

TEST(ColoursTest, IconsUseTheTextColourAndFadeWhenDisabled)
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
