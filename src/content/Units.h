// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace content {

/// What a number in a vehicle file measures. Decides which units are valid, what a number without a
/// unit means, and the unit of the result.
enum class Measure : std::uint8_t
{
    Count,             ///< a plain number
    Mass,              ///< kg
    Length,            ///< m
    Speed,             ///< m/s
    DynamicBrakeSpeed, ///< m/s; mph without a unit
    Force,             ///< N
    Power,             ///< W
    Time,              ///< s
    Volume,            ///< m^3; ft^3 without a unit
    Fuel,              ///< m^3; litres without a unit
    Area,              ///< m^2; ft^2 without a unit
    Pressure,          ///< Pa; psi without a unit
    Vacuum,            ///< Pa; inHg without a unit
    Stiffness,         ///< N/m
    Damping,           ///< N/m/s, as the files call it
    Angle              ///< rad
};
inline constexpr std::size_t kMeasures = 16;

struct MeasureUnit
{
    std::string_view name; ///< compared with letter case ignored
    double factor = 1;
};
/// Returns the units that a measure allows; empty for Count.
std::span<const MeasureUnit> UnitsOf(Measure measure);
/// Returns the factor for numbers without a unit.
double BareFactor(Measure measure);

/// The result of reading a value.
struct Quantity
{
    enum class State : std::uint8_t
    {
        Given,
        NotGiven,   ///< empty, "-" or only a remark
        Unreadable, ///< not a number, or a unit that the measure does not have
        NotFinite   ///< too large for a number
    };

    State state = State::NotGiven;
    double value = 0; ///< only meaningful if the state is Given

    bool IsGiven() const { return state == State::Given; }
};

/// Reads one value of a vehicle file, without its quotes:
///
///     value  = product [ "#" remark ]
///     product = number [ unit ] { "*" number [ unit ] }
///
/// Blanks are allowed between all parts. At most one factor has a unit. A force may also be an
/// acceleration (without a unit, in N/kg or in m/s^2) times a mass; in such a product, "lb" is a
/// mass. Numbers are read in the same way in every locale. Takes linear time.
Quantity ReadQuantity(std::string_view text, Measure measure);

} // namespace content
