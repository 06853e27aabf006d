// SPDX-License-Identifier: MIT
#include "content/VehicleLights.h"

#include "content/Lengths.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace content {
namespace {

constexpr double kMostDegrees = 360;
constexpr float kLeastAngle = 1, kMostAngle = 80; ///< of a cone, degrees

/// The names of the conditions, in the order of LightCondition.
constexpr std::array kNames = {"Headlight", "Unit",      "Penalty", "Control",
                               "Service",   "TimeOfDay", "Coupling"};

/// Returns the number of a condition; -1, which never holds, if it is none.
int numberOf(const Block &block)
{
    if (block.ValueCount() == 0)
        return 0;
    const auto number = LeadingNumber(block.Value());
    return number && std::abs(*number) < 1000 ? static_cast<int>(*number) : -1;
}

VehicleLight::Conditions conditionsOf(const Block &block)
{
    VehicleLight::Conditions conditions{};
    for (const Block child : block.Children()) {
        const auto named = std::find_if(kNames.begin(), kNames.end(),
                                        [&child](const char *name) { return child.Is(name); });
        const auto place = static_cast<std::size_t>(named - kNames.begin());
        const int number = numberOf(child);
        if (number != 0)
            conditions.at(place) = number;
    }
    return conditions;
}

bool holds(LightCondition condition, int number, const LightSituation &now)
{
    switch (condition) {
    case LightCondition::Headlight:
        return number == 3;
    case LightCondition::Unit:
        return number == 1   ? !now.first && !now.last
               : number == 2 ? now.first
                             : number == 3 && now.last;
    case LightCondition::Penalty:
        return number == 1;
    case LightCondition::Control:
    case LightCondition::Service:
        return number == 2;
    case LightCondition::TimeOfDay:
        return number == (now.night ? 2 : 1);
    case LightCondition::Coupling:
        return number == (now.frontCoupled ? 1 : 0) + (now.rearCoupled ? 2 : 0);
    case LightCondition::Other:
        break;
    }
    return false; // a value of unknown meaning
}

/// Reads the block of one light. `fault` says why it cannot be shown; "" if it can.
class LightReader
{
public:
    explicit LightReader(const Block &block)
    {
        for (const Block child : block.Children())
            if (child.Is("Type"))
                readType(child);
            else if (child.Is("Conditions"))
                light.shown.push_back(conditionsOf(child));
        Block states = block, state = block;
        if (!block.Find("States", states) || !states.Find("State", state))
            fault = "has no states";
        else if (fault.empty())
            readState(state);
    }

    VehicleLight light;
    std::string fault;

private:
    void readType(const Block &block)
    {
        const auto number = LeadingNumber(block.Value());
        light.isCone = number == 1.0;
        if (number != 0.0 && number != 1.0)
            fault = "has the unknown type " + block.Value();
    }

    void readState(const Block &state)
    {
        Block block = state;
        if (!state.Find("Position", block))
            fault = "has no position";
        const Offset at = OffsetOf(Words(block));
        light.at = at.at;
        if (!at.fault.empty())
            unusable("Position", at.fault);
        readColour(state);
        light.azimuth = degrees(state, "Azimuth", 0);
        light.elevation = degrees(state, "Elevation", 0);
        light.angle = std::clamp(degrees(state, "Angle", light.angle), kLeastAngle, kMostAngle);
        readRadius(state);
    }

    void readColour(const Block &state)
    {
        Block block = state;
        const std::string text = state.Find("LightColour", block) ? block.Value() : "";
        const char *end = text.data() + text.size();
        const auto read = std::from_chars(text.data(), end, light.colour, 16);
        if (read.ec != std::errc() || read.ptr != end)
            unusable("LightColour", text);
    }

    void readRadius(const Block &state)
    {
        Block block = state;
        if (!state.Find("Radius", block))
            return;
        const std::optional<float> radius = Metres(block.Value());
        if (!radius || *radius < 0)
            unusable("Radius", block.Value());
        else
            light.radius = light.isCone ? *radius : std::min(*radius, kWidestGlow);
    }

    float degrees(const Block &state, const char *name, float absent)
    {
        Block block = state;
        if (!state.Find(name, block) || block.ValueCount() == 0)
            return absent;
        const auto number = LeadingNumber(block.Value());
        if (number && std::abs(*number) <= kMostDegrees)
            return static_cast<float>(*number);
        unusable(name, block.Value());
        return absent;
    }

    void unusable(const std::string &name, const std::string &text)
    {
        fault = "has no usable " + name + (text.empty() ? "" : ": " + text);
    }
};

bool isDark(const VehicleLight &light)
{
    return light.colour >> 24 == 0 || (light.colour & 0xFFFFFF) == 0 || light.radius == 0;
}

} // namespace

bool VehicleLight::ShinesIn(const LightSituation &situation) const
{
    const auto allHold = [&situation](const Conditions &conditions) {
        for (std::size_t i = 0; i < kLightConditions; ++i)
            if (conditions.at(i) != 0 &&
                !holds(static_cast<LightCondition>(i), conditions.at(i), situation))
                return false;
        return true;
    };
    return shown.empty() || std::any_of(shown.begin(), shown.end(), allHold);
}

VehicleLights LightsOf(const Vehicle &vehicle)
{
    VehicleLights all;
    const bool inWagon = vehicle.Find("Wagon/Lights").has_value();
    const char *path = inWagon ? "Wagon/Lights" : "Engine/Lights";
    const auto place = vehicle.Find(path);
    if (!place)
        return all;
    const Block lights = *vehicle.FindBlock(path);
    LineCounter lines(lights.Source());
    std::size_t count = 0;
    for (const Block block : lights.Children()) {
        if (!block.Is("Light") || ++count > kMaxLights)
            continue;
        LightReader reader(block);
        if (!reader.fault.empty())
            all.problems.push_back(place->file + ", line " +
                                   std::to_string(lines.LineOf(block.Where())) + ": light " +
                                   std::to_string(count) + ' ' + reader.fault);
        else if (!isDark(reader.light))
            all.lights.push_back(std::move(reader.light));
    }
    if (count > kMaxLights)
        all.problems.push_back(place->file + ": of " + std::to_string(count) +
                               " lights only the first " + std::to_string(kMaxLights) +
                               " are shown");
    return all;
}

} // namespace content
