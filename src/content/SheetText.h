// SPDX-License-Identifier: MIT
#pragma once

#include "content/TrainSheet.h"
#include "content/Units.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The texts of figures for people. The window and the command line show the same.
namespace content {

enum class UnitSystem : std::uint8_t
{
    Metric, ///< m, t, kW, kN, km/h
    Us,     ///< ft, t-us (2000 lb), hp, lbf, mph
    Uk      ///< ft, t-uk (2240 lb), hp, lbf, mph
};
/// Returns "metric", "us" or "uk".
const char *UnitSystemName(UnitSystem system);
/// Returns the system of this name; nothing for other texts.
std::optional<UnitSystem> UnitSystemOf(std::string_view name);

/// Returns the unit in which a figure is shown, as content/Units reads it: "t-us"; "" for counts.
const char *UnitName(FigureId id, UnitSystem system);
/// Returns what a figure measures.
Measure MeasureOf(FigureId id);

/// Returns a value with its unit: "1,512 t". Horsepower is rounded to three digits, since the
/// simulators do not document which horsepower they mean.
std::string FigureText(FigureId id, double value, UnitSystem system);
/// Returns the figure of a train: "512 t". If it is incomplete, says so: "≥ 512 t, 2 unknown", or
/// "unknown". Units are counted, not vehicles. Adds the vehicle that limits the train, and how many
/// units have their axles from NumWheels.
std::string FigureText(const TrainSheet &sheet, FigureId id, UnitSystem system);

/// A line of a train sheet.
struct SheetLine
{
    std::string label, text;
};
/// Returns the lines of a train sheet, from "Units" to "Missing". Lines that do not apply are left
/// out.
std::vector<SheetLine> LinesOf(const TrainSheet &sheet, UnitSystem system);

} // namespace content
