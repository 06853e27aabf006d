// SPDX-License-Identifier: MIT
#include "content/StockQuery.h"

#include "content/SearchTerms.h"
#include "host/Text.h"

#include <algorithm>
#include <cmath>

namespace content {
namespace {

bool contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

/// True if one of the words begins with the part.
bool hasWord(std::string_view words, std::string_view part)
{
    for (std::size_t at = words.find(part); at != std::string_view::npos;
         at = words.find(part, at + 1))
        if (at == 0 || words[at - 1] == ' ')
            return true;
    return false;
}

/// Reads a number, with the figure's shown unit if it has none. Accepts a decimal comma.
Quantity valueOf(std::string text, FigureId figure, UnitSystem system)
{
    std::replace(text.begin(), text.end(), ',', '.');
    if (!text.empty() && (text.back() == '.' || (text.back() >= '0' && text.back() <= '9')))
        text += UnitName(figure, system);
    return ReadQuantity(text, MeasureOf(figure));
}

} // namespace

SearchedStock SearchedStockOf(const install::StockItem &item,
                              std::shared_ptr<const StockFacts> facts)
{
    SearchedStock searched;
    searched.key = host::ToUpper(item.folder) + '\n';
    searched.file = static_cast<std::uint32_t>(searched.key.size());
    searched.key += host::ToUpper(item.shape) + '\n';
    searched.name = static_cast<std::uint32_t>(searched.key.size());
    if (facts)
        searched.key += host::ToUpper(facts->name);
    searched.isEngine = item.type.starts_with(install::kEngine);
    searched.facts = std::move(facts);
    return searched;
}

StockQuery::StockQuery(std::string_view text, UnitSystem system)
{
    for (const SearchTerm &term : SplitSearch(text))
        if (term.IsWord() || (!addText(term) && !addMissing(term) && !addFigure(term, system)))
            m_terms.push_back({Kind::Text, term.text});
}

/// Returns false if the term has another key.
bool StockQuery::addText(const SearchTerm &term)
{
    static constexpr struct
    {
        std::string_view key;
        Kind kind;
    } kKeys[] = {{"FOLDER", Kind::Folder}, {"FILE", Kind::File},         {"NAME", Kind::Name},
                 {"TYPE", Kind::Type},     {"COUPLING", Kind::Coupling}, {"BRAKES", Kind::Brakes}};
    for (const auto &[key, kind] : kKeys) {
        if (term.key != key || (term.op != ":" && term.op != "="))
            continue;
        if (!term.value.empty()) // it is still being typed
            m_terms.push_back({kind, term.value});
        return true;
    }
    return false;
}

bool StockQuery::addMissing(const SearchTerm &term)
{
    if (term.key != "MISSING" || (term.op != ":" && term.op != "="))
        return false;
    constexpr std::string_view kShape = "SHAPE", kVehicle = "VEHICLE";
    if (!term.value.empty() && kShape.starts_with(term.value))
        m_terms.push_back({Kind::MissingShape, {}});
    else if (!term.value.empty() && kVehicle.starts_with(term.value))
        m_terms.push_back({Kind::MissingVehicle, {}});
    else
        m_remark = "missing: needs \"shape\" or \"vehicle\"";
    return true;
}

bool StockQuery::addFigure(const SearchTerm &term, UnitSystem system)
{
    static constexpr struct
    {
        std::string_view key, name;
        FigureId figure;
    } kKeys[] = {{"LENGTH", "length", FigureId::Length},
                 {"MASS", "mass", FigureId::Mass},
                 {"POWER", "power", FigureId::Power},
                 {"SPEED", "speed", FigureId::MaximumSpeed},
                 {"EFFORT", "effort", FigureId::StartingEffort},
                 {"AXLES", "axles", FigureId::Axles}};
    const auto *const row = std::find_if(std::begin(kKeys), std::end(kKeys),
                                         [&](const auto &each) { return each.key == term.key; });
    if (row == std::end(kKeys))
        return false;
    const Quantity quantity = valueOf(term.value, row->figure, system);
    if (!quantity.IsGiven()) {
        const std::string unit = UnitName(row->figure, system);
        m_remark = std::string(row->name) + term.op + " needs a number" +
                   (unit.empty() ? "" : ", like 20 " + unit);
        return true;
    }
    const Relation relation = term.op == "<"    ? Relation::Less
                              : term.op == "<=" ? Relation::LessOrEqual
                              : term.op == ">=" ? Relation::GreaterOrEqual
                              : term.op == ">"  ? Relation::Greater
                                                : Relation::Equal;
    m_terms.push_back({Kind::Figure, {}, row->figure, relation, quantity.value});
    return true;
}

bool StockQuery::NeedsMissing() const
{
    return std::any_of(m_terms.begin(), m_terms.end(), [](const Term &term) {
        return term.kind == Kind::MissingShape || term.kind == Kind::MissingVehicle;
    });
}

bool StockQuery::Matches(const SearchedStock &vehicle) const
{
    return std::all_of(m_terms.begin(), m_terms.end(),
                       [&](const Term &term) { return matches(term, vehicle); });
}

bool StockQuery::matches(const Term &term, const SearchedStock &vehicle)
{
    const StockFacts *const facts = vehicle.facts.get();
    switch (term.kind) {
    case Kind::Text:
        return contains(vehicle.key, term.text);
    case Kind::Folder:
        return contains(vehicle.Folder(), term.text);
    case Kind::File:
        return contains(vehicle.File(), term.text);
    case Kind::Name:
        return contains(vehicle.Name(), term.text);
    case Kind::Type:
        return matchesType(term, vehicle);
    case Kind::Coupling:
        return facts && contains(host::ToUpper(facts->coupling), term.text);
    case Kind::Brakes:
        return facts && contains(host::ToUpper(facts->brakes), term.text);
    case Kind::MissingShape:
        return vehicle.lacksFiles && !(facts && facts->isMissing);
    case Kind::MissingVehicle:
        return facts && facts->isMissing;
    case Kind::Figure:
        break;
    }
    return matchesFigure(term, vehicle);
}

bool StockQuery::matchesType(const Term &term, const SearchedStock &vehicle)
{
    constexpr std::string_view kEngine = "ENGINE", kWagon = "WAGON";
    return (vehicle.isEngine ? kEngine : kWagon).starts_with(term.text) ||
           (vehicle.facts && hasWord(vehicle.facts->kinds, term.text));
}

bool StockQuery::matchesFigure(const Term &term, const SearchedStock &vehicle)
{
    if (!vehicle.facts || (*vehicle.facts)[term.figure].state != Figure::State::Known)
        return false;
    const double value = (*vehicle.facts)[term.figure].value;
    switch (term.relation) {
    case Relation::Less:
        return value < term.value;
    case Relation::LessOrEqual:
        return value <= term.value;
    case Relation::GreaterOrEqual:
        return value >= term.value;
    case Relation::Greater:
        return value > term.value;
    case Relation::Equal:
        break;
    }
    constexpr double kShownExactly = 0.005; // lists round their figures
    return std::abs(value - term.value) <= kShownExactly * std::abs(term.value);
}

} // namespace content
