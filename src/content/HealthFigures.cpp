// SPDX-License-Identifier: MIT
#include "content/HealthFigures.h"

#include "content/VehicleFigures.h"

#include <set>
#include <tuple>

namespace content {
namespace {

/// Mass, traction, speed and brakes change how the train runs. The other figures change little, and
/// simulators replace them by defaults.
Severity severityOf(FigureId id)
{
    switch (id) {
    case FigureId::CouplerBreak:
    case FigureId::Axles:
    case FigureId::Passengers:
        return Severity::Note;
    default:
        return Severity::Warning;
    }
}

/// Returns the text, cut off between two characters if it is very long.
std::string shortened(const std::string &text)
{
    constexpr std::size_t kLongest = 200;
    if (text.size() <= kLongest)
        return text;
    std::size_t end = kLongest;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    return text.substr(0, end) + "...";
}

std::string faultOf(FigureId id, const Figure &figure)
{
    const std::string subject = "the " + std::string(FigureName(id)) + " \"" +
                                shortened(figure.text) + "\" of " + figure.rule;
    switch (figure.state) {
    case Figure::State::NotFinite:
        return subject + " is too large";
    case Figure::State::Negative:
        return subject + " is negative";
    default:
        return subject + " cannot be read";
    }
}

bool isOpenRailsOnly(std::string_view rule)
{
    return rule.starts_with("ORTS") || rule.find("Weight") != rule.npos;
}

} // namespace

std::vector<Draft> UnreadableFigures(const Vehicle &vehicle, Profiles profiles)
{
    std::vector<Draft> drafts;
    const VehicleFigures figures = FaultyFiguresOf(vehicle);
    // Two figures may come from the same entry.
    std::set<std::tuple<std::uint32_t, int, std::string_view>> reported;
    for (std::size_t i = 0; i < kFigures; ++i) {
        const auto id = static_cast<FigureId>(i);
        const Figure &figure = figures[id];
        if (!figure.IsFaulty() || !reported.emplace(figure.file, figure.line, figure.rule).second)
            continue;
        Draft &draft = drafts.emplace_back(
            DamagedFile(Kind::ConsistVehicle, kUnreadableFigure, figures.files[figure.file],
                        faultOf(id, figure), severityOf(id),
                        isOpenRailsOnly(figure.rule) ? profiles & Profile::OpenRails : profiles));
        draft.reference.line = figure.line;
        draft.reference.wants = std::string(figure.rule) + " ( " + shortened(figure.text) + " )";
    }
    return drafts;
}

} // namespace content
