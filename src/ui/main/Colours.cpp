// SPDX-License-Identifier: MIT
#include "ui/main/Colours.h"

#include "host/Folders.h"
#include "host/Text.h"
#include "ui/main/DesktopScheme.h"
#include "ui/main/IconSet.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

#include <array>
#include <string>

namespace app {

namespace {

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

struct RoleColours
{
    QPalette::ColorRole role;
    QRgb light, dark;
};

constexpr RoleColours kRoles[] = {
    {QPalette::Window, 0xffeff1f3, 0xff2b2d30},
    {QPalette::WindowText, 0xff1d2125, 0xffdfe1e5},
    {QPalette::Base, 0xffffffff, 0xff1e1f22},
    {QPalette::AlternateBase, 0xfff5f7f9, 0xff25272a},
    {QPalette::Text, 0xff1d2125, 0xffdfe1e5},
    {QPalette::PlaceholderText, 0xff73797f, 0xff8c9096},
    {QPalette::Button, 0xffeaedf0, 0xff393b40},
    {QPalette::ButtonText, 0xff1d2125, 0xffdfe1e5},
    {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::ToolTipBase, 0xfffdfdf2, 0xff3c3f45},
    {QPalette::ToolTipText, 0xff1d2125, 0xffdfe1e5},
    {QPalette::Highlight, 0xff2f6f9f, 0xff2f6f9f},
    {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::Link, 0xff1f5f8f, 0xff6fb1e0},
    {QPalette::LinkVisited, 0xff6b4a8f, 0xffb79ad8},
    {QPalette::Light, 0xffffffff, 0xff4a4d52},
    {QPalette::Midlight, 0xfff7f8fa, 0xff3f4247},
    {QPalette::Mid, 0xffb9bfc5, 0xff232528},
    {QPalette::Dark, 0xff9aa3ab, 0xff18191b},
    {QPalette::Shadow, 0xff60686f, 0xff0c0d0e},
};

constexpr std::array<QPalette::ColorRole, 3> kTextRoles = {QPalette::WindowText, QPalette::Text,
                                                           QPalette::ButtonText};

/// The Fusion style, without icons on dialog buttons. In the dark scheme it adds visible outlines
/// to check boxes and draws plain edges on toolbars.
class Look : public QProxyStyle
{
public:
    Look()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    {
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override
    {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        // Underline a letter only where its key works.
        if (const auto *button = qobject_cast<const QAbstractButton *>(widget);
            button && hint == SH_UnderlineShortcut && button->shortcut().isEmpty())
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element != CE_ToolBar || !isDark(option->palette))
            return QProxyStyle::drawControl(element, option, painter, widget);
        // Fusion draws half-white lines above and below, which are glaring on dark.
        painter->fillRect(option->rect, option->palette.color(QPalette::Window));
        painter->setPen(option->palette.color(QPalette::Shadow));
        painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element != PE_IndicatorCheckBox || !isDark(option->palette))
            return;
        // Fusion outlines check boxes darker than their surroundings, which is invisible on dark.
        QColor outline = option->palette.color(QPalette::WindowText);
        outline.setAlphaF(0.45F);
        painter->save();
        painter->setPen(outline);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        painter->restore();
    }
};

} // namespace

ColourScheme DesktopScheme(const QPalette &platform)
{
    const std::string wanted = host::Environment("ZELK_COLORS");
    if (host::EqualsNoCase(wanted, "dark"))
        return ColourScheme::Dark;
    if (host::EqualsNoCase(wanted, "light"))
        return ColourScheme::Light;
    if (isDark(platform))
        return ColourScheme::Dark;
    return SchemeOfDesktop().value_or(ColourScheme::Light);
}

QPalette PaletteOf(ColourScheme scheme)
{
    const bool dark = scheme == ColourScheme::Dark;
    QPalette palette;
    for (const RoleColours &colours : kRoles)
        palette.setColor(colours.role, QColor::fromRgba(dark ? colours.dark : colours.light));
    const QColor faded = QColor::fromRgba(dark ? 0xff7d8187 : 0xff8b9298);
    for (const QPalette::ColorRole role : kTextRoles)
        palette.setColor(QPalette::Disabled, role, faded);
    palette.setColor(QPalette::Disabled, QPalette::Highlight,
                     palette.color(QPalette::Active, QPalette::Mid));
    // The selection in a list without focus.
    palette.setColor(QPalette::Inactive, QPalette::Highlight,
                     QColor::fromRgba(dark ? 0xff4b4e54 : 0xffccd1d6));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText,
                     palette.color(QPalette::Active, QPalette::Text));
    return palette;
}

void DressApplication(QApplication &application)
{
    const ColourScheme scheme = DesktopScheme(application.palette());
    QApplication::setStyle(new Look);
    QApplication::setPalette(PaletteOf(scheme));
    QApplication::setWindowIcon(ProgramIcon());
}

} // namespace app
