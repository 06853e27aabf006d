// SPDX-License-Identifier: MIT
#include "ui/main/WindowBounds.h"

#include "host/Product.h"
#include "host/Settings.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

struct Setting
{
    std::string_view key;
    float defaultTwips;
};
constexpr Setting kLeft{host::setting::kLeft, 1000}, kTop{host::setting::kTop, 1000},
    kWidth{host::setting::kWidth, 6500}, kHeight{host::setting::kHeight, 6500};

int readPixels(host::SettingsStore &settings, const Setting &setting)
{
    const bool isSize = setting.key == kWidth.key || setting.key == kHeight.key;
    float twips = setting.defaultTwips;
    if (const auto text = settings.Read(setting.key))
        if (const auto number = host::ParseSingle(*text);
            number && std::isfinite(*number) && (*number > 0 || !isSize))
            twips = *number;
    // Far beyond any screen, but small enough that the sums below fit an int.
    constexpr float limit = 1000000;
    return static_cast<int>(std::lround(std::clamp(twips, -limit, limit) / kTwipsPerPixel));
}

/// True if enough of the title is on the screen to drag the window by it.
bool titleCanBeReached(const QRect &bounds, const QRect &screen)
{
    const QRect title(bounds.topLeft(), QSize(bounds.width(), 24));
    const QRect seen = title.intersected(screen);
    return seen.width() >= std::min(64, bounds.width()) && seen.height() >= 16;
}

/// Returns the distance of the window's corner from the screen: horizontal plus vertical, 0 inside.
long long distance(const QRect &bounds, const QRect &screen)
{
    const auto outside = [](long long at, long long start, long long length) {
        return std::max({0LL, start - at, at - (start + length - 1)});
    };
    return outside(bounds.x(), screen.x(), screen.width()) +
           outside(bounds.y(), screen.y(), screen.height());
}

QSize fittingSize(const QRect &bounds, const QRect &screen)
{
    return QSize(std::clamp(bounds.width(), 1, screen.width()),
                 std::clamp(bounds.height(), 1, screen.height()));
}

} // namespace

QRect ReadMainBounds(host::SettingsStore &settings)
{
    return QRect(readPixels(settings, kLeft), readPixels(settings, kTop),
                 readPixels(settings, kWidth), readPixels(settings, kHeight));
}

void WriteMainBounds(host::SettingsStore &settings, const QRect &bounds)
{
    const auto write = [&](const Setting &setting, int pixels) {
        settings.Write(setting.key,
                       host::FormatSingle(static_cast<float>(pixels * kTwipsPerPixel)));
    };
    write(kLeft, bounds.x());
    write(kTop, bounds.y());
    write(kWidth, bounds.width());
    write(kHeight, bounds.height());
}

QRect FitToScreens(const QRect &bounds, const QList<QRect> &screens)
{
    if (screens.isEmpty())
        return bounds;
    const QRect nearest =
        *std::min_element(screens.begin(), screens.end(), [&](const QRect &a, const QRect &b) {
            const bool reachA = titleCanBeReached(bounds, a), reachB = titleCanBeReached(bounds, b);
            return reachA != reachB ? reachA : distance(bounds, a) < distance(bounds, b);
        });
    const bool fits =
        fittingSize(bounds, nearest) == bounds.size() && titleCanBeReached(bounds, nearest);
    return fits ? bounds : WithinScreen(bounds, nearest);
}

QRect WithinScreen(const QRect &bounds, const QRect &screen)
{
    const QSize size = fittingSize(bounds, screen);
    const int x = std::clamp(bounds.x(), screen.x(), screen.x() + screen.width() - size.width());
    const int y = std::clamp(bounds.y(), screen.y(), screen.y() + screen.height() - size.height());
    return QRect(QPoint(x, y), size);
}

} // namespace app
