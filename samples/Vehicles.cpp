// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include "samples/Modeller.h"

#include <array>
#include <utility>

namespace samples {
namespace {

constexpr std::array kLevelDistances = {90.0F, 350.0F, 2000.0F};

/// The name of each design in the scripts, and the script that draws it, in the order of Design.
constexpr std::array kScripts = std::to_array<std::pair<const char *, const char *>>({
    {"BoxCar", "van"},
    {"IceVan", "van"},
    {"GoodsVan", "van"},
    {"Caboose", "van"},
    {"TankCar", "tankcar"},
    {"FlatCar", "flatcar"},
    {"PipeFlat", "flatcar"},
    {"Hopper", "hopper"},
    {"Coach", "coach"},
    {"DiningCar", "coach"},
    {"CompartmentCoach", "coach"},
    {"BrakeCoach", "coach"},
    {"MotorCoach", "coach"},
    {"Trailer", "coach"},
    {"Railcar", "coach"},
    {"HoodDiesel", "diesel"},
    {"ElectricEngine", "electric"},
    {"ExpressSteam", "express"},
    {"TankSteam", "tankengine"},
    {"Tender", "tender"},
});

/// Returns the surfaces that Patch::look selects: the vehicle's own texture, the gear texture, the
/// gear texture with its mask, the own texture with its mask, and glass. A vehicle that uses only
/// its own texture has just the first two; faces with other surfaces are left out.
std::vector<Surface> looksOf(const Plan &plan)
{
    if (plan.alone)
        return {{}, {}};
    return {
        {},
        {.image = 1},
        {.image = 1, .alphaTest = true},
        {.shader = "BlendATexDiff", .alphaTest = true},
        {.shader = "BlendATexDiff",
         .image = plan.alpha == AceAlpha::Full ? 0U : 2U,
         .material = kShinyMaterial},
    };
}

/// Returns the texture of running gear and small parts, with its patches.
Modeller &gear()
{
    static Modeller gear(256, {52, 50, 50});
    static const bool painted = (gear.script.Run("gear"), true);
    return static_cast<void>(painted), gear;
}

void setPlan(Script &script, const Plan &plan, const char *design)
{
    constexpr std::array alphas = {"none", "mask", "full"}; // in the order of AceAlpha
    script.Set("design", design);
    script.Set("length", plan.length);
    script.Set("tip", plan.length / 2);
    script.Set("base", plan.base);
    script.Set("trim", plan.trim);
    script.Set("initials", plan.initials);
    script.Set("number", plan.number);
    script.Set("alpha", alphas.at(static_cast<std::size_t>(plan.alpha)));
    script.Set("alone", plan.alone ? 1.0F : 0.0F);
}

/// Draws a level of detail, 0 for the nearest.
void draw(Modeller &model, std::size_t level)
{
    model.BeginLevel(kLevelDistances.at(level));
    model.On(0);
    model.script.Set("level", static_cast<float>(level));
    model.script.Set("near", level == 0 ? 1.0F : 0.0F);
    model.script.Set("far", level == 2 ? 1.0F : 0.0F);
    model.script.Call("draw");
}

} // namespace

PaintedModel BuildVehicle(Design design, const Plan &plan)
{
    const auto [name, script] = kScripts.at(static_cast<std::size_t>(design));
    Modeller model(plan.alone ? 256 : 512, Shade(plan.base, 0.6F), plan.images, looksOf(plan));
    if (plan.alone) {
        model.Scale(0.3F, 6);
        model.script.Run("gear");
        model.Scale(0.4F, 4);
    } else {
        model.script.Import(gear().script);
    }
    setPlan(model.script, plan, name);
    model.script.Run("vehicle");
    model.script.Run(script);
    for (std::size_t level = plan.alone ? 1 : 0; level < kLevelDistances.size(); ++level)
        draw(model, level);
    return model.Finish(model.sheet.Pixels());
}

const Picture &GearPicture()
{
    return gear().sheet.Pixels();
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
