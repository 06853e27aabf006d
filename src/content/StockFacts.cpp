// SPDX-License-Identifier: MIT
#include "content/StockFacts.h"

#include "content/HealthText.h"
#include "host/Text.h"

#include <algorithm>
#include <vector>

namespace content {
namespace {

struct Column
{
    const char *title;
    std::optional<FigureId> figure;
};
constexpr std::array<Column, kFactColumns> kColumns = {{{"Name", std::nullopt},
                                                        {"Length", FigureId::Length},
                                                        {"Mass", FigureId::Mass},
                                                        {"Power", FigureId::Power},
                                                        {"Max speed", FigureId::MaximumSpeed},
                                                        {"Coupling", std::nullopt},
                                                        {"Brakes", std::nullopt}}};

const Column &rowOf(FactColumn column)
{
    return kColumns[static_cast<std::size_t>(column)];
}

std::string joinedOnce(const std::vector<std::string> &texts)
{
    std::string joined;
    for (auto text = texts.begin(); text != texts.end(); ++text)
        if (!text->empty() && std::find(texts.begin(), text, *text) == text)
            joined += (joined.empty() ? "" : ", ") + *text;
    return joined;
}

/// Returns at most this many bytes, without cutting a character in two.
std::string cut(std::string text)
{
    constexpr std::size_t kLongest = 200;
    if (text.size() <= kLongest)
        return text;
    std::size_t end = kLongest;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end;
    text.resize(end);
    return text + "\u2026";
}

const std::string &textOf(const StockFacts &facts, FactColumn column)
{
    return column == FactColumn::Name       ? facts.name
           : column == FactColumn::Coupling ? facts.coupling
                                            : facts.brakes;
}

} // namespace

StockFacts FactsOf(const SheetVehicle &vehicle)
{
    const VehicleFigures &figures = vehicle.figures;
    StockFacts facts;
    facts.name = figures.name;
    facts.kinds = host::ToUpper(figures.wagonType + ' ' + figures.engineType);
    facts.coupling = joinedOnce(figures.couplers);
    facts.brakes = figures.brakeSystem;
    facts.fault = vehicle.fault;
    facts.isMissing = vehicle.IsMissing();
    for (std::size_t i = 0; i < kFigures; ++i)
        facts.numbers[i] = {figures.figures[i].state, figures.figures[i].value};
    return facts;
}

const char *FactTitle(FactColumn column)
{
    return rowOf(column).title;
}

std::optional<FigureId> FactFigure(FactColumn column)
{
    return rowOf(column).figure;
}

std::string FactText(const StockFacts &facts, FactColumn column, UnitSystem system)
{
    const std::optional<FigureId> figure = FactFigure(column);
    if (!figure) {
        const std::string &text = textOf(facts, column);
        return text.empty() ? "?" : cut(PlainText(text.substr(0, 1000)));
    }
    const StockFacts::Number &number = facts[*figure];
    if (number.state == Figure::State::NotApplicable)
        return {};
    return number.state == Figure::State::Known ? FigureText(*figure, number.value, system) : "?";
}

} // namespace content
