// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace samples {
namespace {

constexpr Colour kIron{52, 50, 50};
constexpr Colour kSteel{128, 128, 132};

void paintDiscWheel(Brush &b)
{
    b.Fill(kIron);
    b.Disc(0, 0, 1, kSteel);
    b.Disc(0, 0, 0.9F, {70, 66, 62});
    b.Disc(0, 0, 0.78F, {40, 38, 37});
    b.Disc(0, 0, 0.7F, {58, 55, 52});
    b.Disc(0.05F, 0.06F, 0.45F, {66, 62, 58});
    b.Disc(0, 0, 0.28F, {36, 34, 34});
    b.Disc(0, 0, 0.2F, {92, 84, 74});
    b.Weather(3, 0.4F);
}

void paintSpokes(Brush &b)
{
    constexpr Colour red{112, 36, 30};
    b.Fill(kIron);
    b.Disc(0, 0, 1, {150, 148, 146});
    b.Disc(0, 0, 0.92F, red);
    b.Disc(0, 0, 0.78F, {112, 36, 30, 0});
    for (int i = 0; i < 7; ++i) {
        const float angle = std::numbers::pi_v<float> * static_cast<float>(i) / 7;
        const float x = std::cos(angle) * 0.85F;
        const float y = std::sin(angle) * 0.85F;
        b.Line(-x, -y, x, y, 0.11F, red);
    }
    b.Disc(0, 0, 0.26F, Shade(red, 0.8F));
    b.Disc(0, 0, 0.15F, {120, 118, 116});
}

void paintFrame(Brush &b)
{
    b.Fill({46, 43, 42});
    b.Rect({-1, 0.82F, 1, 1}, {70, 66, 62});
    b.Rect({-1, 0, 1, 0.1F}, {60, 55, 50});
    b.RoundRect({-0.3F, 0.12F, 0.3F, 0.8F}, 0.05F, {20, 19, 19});
    for (const float x : {-0.2F, 0.0F, 0.2F}) {
        for (float y = 0.14F; y < 0.76F; y += 0.12F)
            b.Rect({x - 0.08F, y, x + 0.08F, y + 0.07F}, {104, 92, 80});
        b.Line(x - 0.04F, 0.14F, x - 0.04F, 0.76F, 0.02F, {150, 140, 128}, 0.6F);
    }
    for (const float x : {-0.52F, 0.52F})
        b.RoundRect({x - 0.12F, 0.3F, x + 0.12F, 0.7F}, 0.08F, {18, 17, 17});
    b.Rivets(-0.95F, 0.9F, 0.95F, 0.9F, 0.12F);
    b.Fade({-1, 0, 1, 0.5F}, {90, 70, 50}, 0.4F, 0);
    b.Weather(5, 0.5F);
}

void paintGrating(Brush &b)
{
    b.Fill({92, 92, 94, 0});
    const auto bar = [&](const Box2 &box) {
        b.Clear(box, 255);
        b.Rect(box, {104, 104, 108});
    };
    for (float x = 0; x < 1; x += 0.125F)
        bar({x, 0, x + 0.045F, 1});
    for (float y = 0; y < 1; y += 0.25F)
        bar({0, y, 1, y + 0.08F});
}

void paintLadder(Brush &b)
{
    b.Fill({70, 70, 72, 0});
    for (const float x : {0.0F, 0.86F})
        b.Clear({x, 0, x + 0.14F, 1}, 255);
    for (float y = 0.06F; y < 1; y += 0.16F)
        b.Clear({0, y, 1, y + 0.05F}, 255);
}

void paintWood(Brush &b)
{
    constexpr Colour plank{116, 92, 66};
    b.Fill(plank);
    for (int i = 0; i < 12; ++i) {
        const float x = static_cast<float>(i) / 12;
        const float tint = 0.8F + 0.07F * static_cast<float>(i * 5 % 6);
        b.Rect({x, 0, x + 0.083F, 1}, Shade(plank, tint));
        b.Line(x, 0, x, 1, 0.012F, {40, 30, 22});
    }
    b.Weather(9, 0.5F);
}

void paintSeat(Brush &b)
{
    b.Fill({52, 74, 110});
    b.Rect({0, 0.8F, 1, 1}, {196, 190, 178});
    b.Joint({0.05F, 0.05F, 0.95F, 0.78F}, 0.04F);
}

void paintLamp(Brush &b)
{
    b.Fill({60, 60, 62});
    b.Disc(0, 0, 0.95F, {150, 150, 154});
    b.Disc(0, 0, 0.78F, {255, 250, 225});
}

void paintTailLamp(Brush &b)
{
    b.Fill({40, 38, 38});
    b.Disc(0, 0, 0.85F, {200, 30, 26});
}

} // namespace

void PaintRailing(Brush &brush, Colour colour)
{
    brush.Fill(colour);
    brush.Fade({0, 0, 1, 1}, {60, 50, 20}, 0.5F, 0);
    brush.Clear({-1, -1, 2, 2});
    for (const Box2 &bar : {Box2{0, 0, 0.05F, 1}, Box2{0.95F, 0, 1, 1}, Box2{0, 0.92F, 1, 1},
                            Box2{0, 0.48F, 1, 0.56F}})
        brush.Clear(bar, 255);
}

GearPatches PaintGear(Sheet &sheet, float scale)
{
    const auto paint = [&](Look look, int width, int height, const Window &window,
                           const std::function<void(Brush &)> &how) {
        const auto scaled = [&](int pixels) {
            return std::max(6, static_cast<int>(static_cast<float>(pixels) * scale));
        };
        Patch patch = sheet.Paint(scaled(width), scaled(height), window, how);
        patch.look = look;
        return patch;
    };
    const auto plain = [&](Colour colour, float dirt) {
        return paint(OnGear, 26, 26, {}, [&](Brush &b) {
            b.Fill(colour);
            b.Weather(colour.red, dirt);
        });
    };
    const auto railing = [](Brush &b) { PaintRailing(b, {226, 206, 60}); };
    const Window round{-1, -1, 2, 2};
    // Tall pieces first.
    GearPatches gear;
    gear.wheel = paint(OnGear, 74, 74, round, paintDiscWheel);
    gear.spokes = paint(OnCutout, 74, 74, round, paintSpokes);
    gear.grating = paint(OnCutout, 64, 64, {}, paintGrating);
    gear.frame = paint(OnGear, 122, 48, {-1, 0, 2, 1}, paintFrame);
    gear.railing = paint(OnCutout, 88, 48, {}, railing);
    gear.ladder = paint(OnCutout, 24, 48, {}, paintLadder);
    gear.wood = paint(OnGear, 96, 40, {}, paintWood);
    gear.seat = paint(OnGear, 32, 32, {}, paintSeat);
    gear.dark = plain({46, 44, 44}, 0.4F);
    gear.black = plain({26, 26, 28}, 0.3F);
    gear.rust = plain({84, 60, 46}, 0.5F);
    gear.steel = plain({150, 150, 154}, 0.15F);
    gear.light = plain({196, 186, 164}, 0.1F);
    gear.lamp = paint(OnGear, 20, 20, round, paintLamp);
    gear.tail = paint(OnGear, 20, 20, round, paintTailLamp);
    return gear;
}

const Picture &GearPicture()
{
    static const Picture picture = [] {
        Sheet sheet(256, kIron);
        PaintGear(sheet);
        return sheet.Pixels();
    }();
    return picture;
}

const Picture &GlassPicture()
{
    static const Picture picture = [] {
        Picture glass{32, 32, {}};
        for (int y = 0; y < glass.height; ++y) {
            for (int x = 0; x < glass.width; ++x) {
                const int slant = (x + y / 2) % 32;
                const bool gleam = slant > 12 && slant < 18;
                Colour pixel = Mix({150, 176, 190}, {40, 56, 64}, static_cast<float>(y) / 31);
                pixel.alpha = gleam ? 128 : static_cast<std::uint8_t>(84 + y);
                glass.pixels.push_back(pixel);
            }
        }
        return glass;
    }();
    return picture;
}

} // namespace samples
