// SPDX-License-Identifier: MIT
#pragma once

#include "content/SheetText.h"
#include "content/TrainSheet.h"

#include <array>
#include <cstdint>
#include <string>

namespace content {

/// What lists and searches use of a vehicle. Small, since there may be tens of thousands.
struct StockFacts
{
    struct Number
    {
        Figure::State state = Figure::State::NotGiven;
        double value = 0; ///< only meaningful if the figure is known
    };

    std::string name;     ///< the vehicle's own Name
    std::string kinds;    ///< the types in its file, in upper case: "ENGINE DIESEL"
    std::string coupling; ///< each type once: "Automatic, Bar"
    std::string brakes;   ///< the brake system
    std::string fault;    ///< why the figures are not known; "" if they are
    bool isMissing = false;
    std::array<Number, kFigures> numbers{};

    const Number &operator[](FigureId id) const { return numbers[static_cast<std::size_t>(id)]; }
};

StockFacts FactsOf(const SheetVehicle &vehicle);

/// The columns that lists of vehicles can show of the facts.
enum class FactColumn : std::uint8_t
{
    Name,
    Length,
    Mass,
    Power,
    MaximumSpeed,
    Coupling,
    Brakes
};
inline constexpr int kFactColumns = 7;
/// Returns the header: "Max speed".
const char *FactTitle(FactColumn column);
/// Returns the figure of a column; nothing for columns of text.
std::optional<FigureId> FactFigure(FactColumn column);
/// Returns the content of a cell: "15.2 m"; "?" if the vehicle should give it and does not; "" if
/// vehicles of this kind have none. Long names are cut off.
std::string FactText(const StockFacts &facts, FactColumn column, UnitSystem system);

} // namespace content
