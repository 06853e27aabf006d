// SPDX-License-Identifier: MIT
#pragma once

#include "content/VehicleFigures.h"
#include "zelkctl/Output.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

namespace zelkctl {

/// The figures that commands write as JSON, with the names of their members.
inline constexpr std::array kJsonFigures = {
    std::pair(content::FigureId::Length, "length_m"),
    std::pair(content::FigureId::Mass, "mass_kg"),
    std::pair(content::FigureId::Power, "power_w"),
    std::pair(content::FigureId::StartingEffort, "starting_effort_n"),
    std::pair(content::FigureId::ContinuousEffort, "continuous_effort_n"),
    std::pair(content::FigureId::MaximumSpeed, "top_speed_mps"),
    std::pair(content::FigureId::BrakeForce, "brake_force_n"),
    std::pair(content::FigureId::Axles, "axles"),
};

/// Returns a number without an exponent, with at most 15 significant digits; "null" for nothing and
/// for numbers that are not finite.
std::string JsonNumber(std::optional<double> value);

/// Writes a line of a table: the label, padded, and the text.
void WriteLine(Output &out, const std::string &label, const std::string &text);

} // namespace zelkctl
