// SPDX-License-Identifier: MIT
#include "content/SheetText.h"

#include "content/HealthText.h"
#include "host/Text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace content {
namespace {

constexpr std::array kSystems = {UnitSystem::Metric, UnitSystem::Us, UnitSystem::Uk};

/// The unit in which people read a measure.
struct ShownUnit
{
    Measure measure = Measure::Count;
    std::array<const char *, kSystems.size()> names = {"", "", ""}; ///< by system
};

ShownUnit unitOf(FigureId id)
{
    switch (id) {
    case FigureId::Length:
        return {Measure::Length, {"m", "ft", "ft"}};
    case FigureId::Mass:
    case FigureId::EmptyMass:
        return {Measure::Mass, {"t", "t-us", "t-uk"}};
    case FigureId::Power:
    case FigureId::PrimeMoverPower:
        return {Measure::Power, {"kW", "hp", "hp"}};
    case FigureId::StartingEffort:
    case FigureId::ContinuousEffort:
    case FigureId::BrakeForce:
    case FigureId::CouplerBreak:
        return {Measure::Force, {"kN", "lbf", "lbf"}};
    case FigureId::MaximumSpeed:
        return {Measure::Speed, {"km/h", "mph", "mph"}};
    case FigureId::Axles:
    case FigureId::Passengers:
        break;
    }
    return {};
}

double factorOf(Measure measure, std::string_view name)
{
    for (const MeasureUnit &unit : UnitsOf(measure))
        if (unit.name == name)
            return unit.factor;
    return 1;
}

double roundedToDigits(double value, int digits)
{
    if (value == 0)
        return 0;
    const double scale = std::pow(10.0, digits - 1 - std::floor(std::log10(std::abs(value))));
    return std::isfinite(scale) && scale > 0 ? std::round(value * scale) / scale : value;
}

/// Returns the number with one decimal below 100 and with commas between groups of three digits.
std::string numberText(double value)
{
    constexpr double kLargest = 1e15;
    if (std::abs(value) >= kLargest) {
        std::array<char, 64> text{};
        const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::scientific, 3);
        return {text.data(), end.ptr};
    }
    const bool hasDecimal = std::abs(value) < 100 && std::abs(value - std::round(value)) >= 0.05;
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, hasDecimal ? 1 : 0);
    std::string out(text.data(), end.ptr);
    if (!hasDecimal)
        for (auto at = static_cast<std::ptrdiff_t>(out.size()) - 3; at > 0; at -= 3)
            out.insert(static_cast<std::size_t>(at), 1, ',');
    return out;
}

void add(std::vector<SheetLine> &lines, const char *label, std::string text)
{
    lines.push_back({label, std::move(text)});
}

std::string brakesOf(const TrainSheet &sheet)
{
    std::string text;
    for (const auto &[system, units] : sheet.BrakeSystems())
        text += (text.empty() ? "" : ", ") + PlainText(system) +
                (sheet.HasMixedBrakes() ? " (" + std::to_string(units) + ')' : "");
    return (sheet.HasMixedBrakes() ? "mixed: " : "") + text;
}

std::string joined(const std::vector<std::string> &names)
{
    std::string text;
    for (const std::string &name : names)
        text += (text.empty() ? "" : ", ") + PlainText(name);
    return text;
}

} // namespace

const char *UnitSystemName(UnitSystem system)
{
    constexpr std::array kNames = {"metric", "us", "uk"};
    return kNames[static_cast<std::size_t>(system)];
}

std::optional<UnitSystem> UnitSystemOf(std::string_view name)
{
    for (const UnitSystem system : kSystems)
        if (name == UnitSystemName(system))
            return system;
    return std::nullopt;
}

const char *UnitName(FigureId id, UnitSystem system)
{
    return unitOf(id).names[static_cast<std::size_t>(system)];
}

Measure MeasureOf(FigureId id)
{
    return unitOf(id).measure;
}

std::string FigureText(FigureId id, double value, UnitSystem system)
{
    const std::string_view name = UnitName(id, system);
    value /= factorOf(MeasureOf(id), name);
    if (name == "hp")
        value = roundedToDigits(value, 3);
    return numberText(value) + (name.empty() ? "" : " ") + std::string(name);
}

std::string FigureText(const TrainSheet &sheet, FigureId id, UnitSystem system)
{
    const SheetFigure &figure = sheet[id];
    const bool isSpeed = id == FigureId::MaximumSpeed;
    const bool isLowest = isSpeed || id == FigureId::CouplerBreak;
    if (!figure.value)
        return figure.unknownUnits > 0 ? "unknown" : "none";
    std::string text = FigureText(id, *figure.value, system);
    if (figure.unknownUnits > 0)
        text = (isLowest ? "\u2264 " : "\u2265 ") + text + ", " +
               std::to_string(figure.unknownUnits) + " unknown";
    if (isSpeed && sheet.IsSpeedOfConsist())
        text += " (set by the consist)";
    else if (!figure.limitedBy.empty())
        text += " (" + PlainText(figure.limitedBy) + ')';
    if (id == FigureId::Axles && sheet.UnitsByNumWheels() > 0)
        text += sheet.UnitsByNumWheels() == sheet.Units()
                    ? " (NumWheels)"
                    : " (" + host::Counted(sheet.UnitsByNumWheels(), "unit", "units") +
                          " by NumWheels)";
    return text;
}

std::vector<SheetLine> LinesOf(const TrainSheet &sheet, UnitSystem system)
{
    std::vector<SheetLine> lines;
    const auto addFigure = [&](const char *label, FigureId id) {
        add(lines, label, FigureText(sheet, id, system));
    };
    add(lines, "Units", std::to_string(sheet.Units()));
    addFigure("Length", FigureId::Length);
    addFigure("Mass", FigureId::Mass);
    if (sheet[FigureId::EmptyMass].knownUnits > 0)
        addFigure("Empty mass", FigureId::EmptyMass);
    addFigure("Power", FigureId::Power);
    addFigure("Starting effort", FigureId::StartingEffort);
    addFigure("Continuous effort", FigureId::ContinuousEffort);
    addFigure("Top speed", FigureId::MaximumSpeed);
    addFigure("Brake force", FigureId::BrakeForce);
    if (!sheet.BrakeSystems().empty())
        add(lines, "Brakes", brakesOf(sheet));
    addFigure("Weakest coupler", FigureId::CouplerBreak);
    addFigure("Axles", FigureId::Axles);
    if (sheet[FigureId::Passengers].knownUnits > 0)
        addFigure("Passengers", FigureId::Passengers);
    if (!sheet.Missing().empty())
        add(lines, "Missing", joined(sheet.Missing()));
    if (!sheet.Damaged().empty())
        add(lines, "Damaged", joined(sheet.Damaged()));
    return lines;
}

} // namespace content
