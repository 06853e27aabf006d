// SPDX-License-Identifier: MIT
#pragma once

#include "content/Vehicle.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace content {

/// The situation of a vehicle in a train, which decides which of its lights shine. The train is the
/// player's, in service, without a penalty, with bright headlights.
struct LightSituation
{
    bool first = true, last = true; ///< in the train
    bool frontCoupled = false, rearCoupled = false;
    bool night = true;
};

/// What decides whether a light shines, by the value that a file gives; 0 does not matter.
enum class LightCondition : std::uint8_t
{
    Headlight, ///< 1 off, 2 dim, 3 bright
    Unit,      ///< 1 in the middle of the train, 2 first, 3 last
    Penalty,   ///< 1 no, 2 yes
    Control,   ///< 1 other trains, 2 the player's
    Service,   ///< 1 out of service, 2 in service
    TimeOfDay, ///< 1 day, 2 night
    Coupling,  ///< 1 at the front, 2 at the rear, 3 at both ends
    Other      ///< one of unknown meaning
};
inline constexpr std::size_t kLightConditions = 8;

/// A light of a vehicle, as it is in its first state.
struct VehicleLight
{
    /// The values of one block of conditions, all of which must hold.
    using Conditions = std::array<int, kLightConditions>;

    bool isCone = false;
    std::array<float, 3> at{};     ///< in the vehicle's space, in metres
    float azimuth = 0;             ///< degrees from ahead to the right
    float elevation = 0;           ///< degrees above the horizon
    float radius = 1;              ///< metres; the reach of a cone
    float angle = 10;              ///< degrees between the axis and the edge of a cone
    std::uint32_t colour = 0;      ///< alpha, red, green and blue, from the highest byte down
    std::vector<Conditions> shown; ///< the light needs one of them; none always shines

    bool ShinesIn(const LightSituation &situation) const;

    friend bool operator==(const VehicleLight &, const VehicleLight &) = default;
};

struct VehicleLights
{
    std::vector<VehicleLight> lights; ///< in file order, without dark ones
    /// What is not in `lights` although the vehicle describes it, one sentence each.
    std::vector<std::string> problems;
};

/// Lights beyond this number are a problem of their own. Real vehicles have a dozen.
inline constexpr std::size_t kMaxLights = 100;
/// No glow is wider than this radius, in metres; real ones have 1.5 at most.
inline constexpr float kWidestGlow = 5;

/// Returns the lights of a vehicle: those of its last block Lights, which replaces all others.
VehicleLights LightsOf(const Vehicle &vehicle);

} // namespace content
