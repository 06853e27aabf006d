// SPDX-License-Identifier: MIT
#pragma once

#include "content/Vehicle.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace content {

/// The figures of a vehicle, in SI units.
enum class FigureId : std::uint8_t
{
    Length,
    Mass,
    EmptyMass,
    Power,           ///< at the rail
    PrimeMoverPower, ///< at the shafts of all diesel engines
    StartingEffort,
    ContinuousEffort,
    MaximumSpeed,
    BrakeForce,
    CouplerBreak, ///< the lowest break force of its couplers
    Axles,
    Passengers
};
inline constexpr std::size_t kFigures = 12;
/// Returns the name for people: "continuous effort".
const char *FigureName(FigureId id);

struct Figure
{
    enum class State : std::uint8_t
    {
        Known,
        NotGiven,      ///< there is no entry, or its value is "-", or 0 where that means "not set"
        NotApplicable, ///< vehicles of this kind have no such figure
        Unreadable,
        NotFinite,
        Negative
    };

    State state = State::NotGiven;
    double value = 0;       ///< only meaningful if the figure is known
    std::string text;       ///< as written; several parts are joined by " + "
    const char *rule = "";  ///< the entry that gives the figure; "" if there is none
    std::uint32_t file = 0; ///< index into VehicleFigures::files
    int line = 0;           ///< 0 if there is no entry

    bool IsKnown() const { return state == State::Known; }
    /// True if there is an entry whose value is faulty.
    bool IsFaulty() const { return state > State::NotApplicable; }
    /// Returns why there is no value: "not-given", "not-applicable", "unreadable", "not-finite" or
    /// "negative"; for a known figure, its rule.
    const char *Reason() const;
};

/// What a vehicle file says about the vehicle, as one simulator reads it.
struct VehicleFigures
{
    std::string name; ///< the engine's own name if it has one, else the wagon's
    bool isEngine = false;
    std::string wagonType;             ///< Freight, Carriage, Tender, Engine
    std::string engineType;            ///< Diesel, Electric, Steam, Control; "" for wagons
    std::string brakeSystem;           ///< "" if it is not given
    std::vector<std::string> couplers; ///< the type of each: Automatic, Chain, Bar
    bool hasEffortCurves = false;      ///< ORTSMaxTractiveForceCurves may replace the efforts
    std::vector<std::string> files;    ///< paths
    std::array<Figure, kFigures> figures;

    const Figure &operator[](FigureId id) const { return figures[static_cast<std::size_t>(id)]; }
    Figure &operator[](FigureId id) { return figures[static_cast<std::size_t>(id)]; }
};

/// The entry that gives the axles where no other does. Open Rails takes its number as it is,
/// although most authors counted wheels.
inline constexpr const char *kNumWheels = "NumWheels";

/// Reads the figures of a vehicle. All are NotGiven if the vehicle could not be read.
VehicleFigures FiguresOf(const Vehicle &vehicle);
/// Like FiguresOf, but leaves out the name, and the lines of figures that are not faulty. Takes
/// half the time.
VehicleFigures FaultyFiguresOf(const Vehicle &vehicle);

} // namespace content
