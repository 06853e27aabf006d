// SPDX-License-Identifier: MIT
#include "content/VehicleFigures.h"

#include "content/Units.h"
#include "host/Path.h"

#include <algorithm>
#include <cmath>

namespace content {
namespace {

enum class Part : std::uint8_t
{
    Other,
    Top,
    Wagon,
    Engine,
    Coupling,
    Spring,
    FreightAnims,
    FreightAnim,
    DieselEngines
};

/// The entries that give figures.
enum Slot : std::uint8_t
{
    WagonType,
    EngineType,
    Size,
    Mass,
    NumWheels,
    NumberAxles,
    NumberDriveAxles,
    BrakeSystem,
    MaxBrakeForce,
    Capacity,
    MaxPower,
    ShaftPower,
    PrimeMovers,
    MaximalPower,
    MaxForce,
    ContinuousForce,
    ForceCurves,
    MaxVelocity,
    Couplings,
    CouplerType,
    Break,
    FreightAnims,
    EmptyWeight,
    StaticWeight,
    FullWeight,
    FullAtStart,
    Slots
};

struct Key
{
    Part part;
    std::string_view name;
    Slot slot;
};

constexpr std::array kKeys = {
    Key{Part::Wagon, "Type", WagonType},
    Key{Part::Wagon, "Size", Size},
    Key{Part::Wagon, "Mass", Mass},
    Key{Part::Wagon, "NumWheels", NumWheels},
    Key{Part::Wagon, "ORTSNumberAxles", NumberAxles},
    Key{Part::Wagon, "ORTSNumberDriveAxles", NumberDriveAxles},
    Key{Part::Wagon, "BrakeSystemType", BrakeSystem},
    Key{Part::Wagon, "MaxBrakeForce", MaxBrakeForce},
    Key{Part::Wagon, "PassengerCapacity", Capacity},
    Key{Part::Wagon, "Coupling", Couplings},
    Key{Part::Wagon, "ORTSFreightAnims", FreightAnims},
    Key{Part::Engine, "Type", EngineType},
    Key{Part::Engine, "ORTSNumberAxles", NumberAxles},
    Key{Part::Engine, "ORTSNumberDriveAxles", NumberDriveAxles},
    Key{Part::Engine, "BrakeSystemType", BrakeSystem},
    Key{Part::Engine, "PassengerCapacity", Capacity},
    Key{Part::Engine, "MaxPower", MaxPower},
    Key{Part::Engine, "ORTSDieselEngineMaxPower", ShaftPower},
    Key{Part::Engine, "ORTSDieselEngines", PrimeMovers},
    Key{Part::Engine, "MaxForce", MaxForce},
    Key{Part::Engine, "MaxContinuousForce", ContinuousForce},
    Key{Part::Engine, "ORTSMaxTractiveForceCurves", ForceCurves},
    Key{Part::Engine, "MaxVelocity", MaxVelocity},
    Key{Part::Coupling, "Type", CouplerType},
    Key{Part::Spring, "Break", Break},
    Key{Part::FreightAnims, "WagonEmptyWeight", EmptyWeight},
    Key{Part::FreightAnim, "FreightWeight", StaticWeight},
    Key{Part::FreightAnim, "FreightWeightWhenFull", FullWeight},
    Key{Part::FreightAnim, "FullAtStart", FullAtStart},
    Key{Part::DieselEngines, "MaximalPower", MaximalPower},
};

Part partBelow(Part parent, std::string_view name)
{
    const auto is = [&](std::string_view other) { return Block::SameName(name, other); };
    switch (parent) {
    case Part::Top:
        return is("Wagon") ? Part::Wagon : is("Engine") ? Part::Engine : Part::Other;
    case Part::Wagon:
        return is("Coupling")           ? Part::Coupling
               : is("ORTSFreightAnims") ? Part::FreightAnims
                                        : Part::Other;
    case Part::Engine:
        return is("ORTSDieselEngines") ? Part::DieselEngines : Part::Other;
    case Part::Coupling:
        return is("Spring") ? Part::Spring : Part::Other;
    case Part::FreightAnims:
        return is("FreightAnimStatic") || is("FreightAnimContinuous") ? Part::FreightAnim
                                                                      : Part::Other;
    case Part::DieselEngines:
        return Part::DieselEngines;
    default:
        return Part::Other;
    }
}

const Key *keyOf(Part part, std::string_view name)
{
    if (part == Part::Other || part == Part::Top)
        return nullptr;
    const auto found = std::find_if(kKeys.begin(), kKeys.end(), [&](const Key &key) {
        return key.part == part && Block::SameName(name, key.name);
    });
    return found == kKeys.end() ? nullptr : &*found;
}

struct Hit
{
    std::uint32_t entry = 0;
};
using Hits = std::vector<Hit>;

enum class Wanted : bool
{
    Everything,
    Faults
};

class Reader
{
public:
    Reader(const Vehicle &vehicle, Wanted wanted)
        : m_vehicle(vehicle)
        , m_wanted(wanted)
    {
        for (const Vehicle::File &file : vehicle.Files())
            m_lines.emplace_back(*file.source);
        collect();
        for (const Slot slot : {CouplerType, Break})
            keepLastFile(slot);
        keepBelowLast(FreightAnims, {EmptyWeight, StaticWeight, FullWeight, FullAtStart});
        keepBelowLast(PrimeMovers, {MaximalPower});
    }

    VehicleFigures Read()
    {
        for (const Vehicle::File &file : m_vehicle.Files())
            m_out.files.push_back(file.path);
        readTexts();
        readBody();
        readMass();
        readCouplers();
        readTraction();
        return std::move(m_out);
    }

private:
    void collect()
    {
        std::vector<Part> parts;
        parts.reserve(m_vehicle.Entries().size());
        for (const Vehicle::Entry &entry : m_vehicle.Entries()) {
            const Part parent = entry.parent == Vehicle::kTop ? Part::Top : parts[entry.parent];
            if (parent == Part::Other) {
                parts.push_back(Part::Other);
                continue;
            }
            const std::string_view name = m_vehicle.BlockOf(entry).Name();
            if (isIgnored(name)) {
                parts.push_back(Part::Other);
                continue;
            }
            if (const Key *const key = keyOf(parent, name))
                m_hits[key->slot].push_back({static_cast<std::uint32_t>(parts.size())});
            parts.push_back(partBelow(parent, name));
            m_hasEngine = m_hasEngine || parts.back() == Part::Engine;
        }
    }

    /// MSTS does not read the entries of Open Rails.
    bool isIgnored(std::string_view name) const
    {
        return m_vehicle.Simulator() == Profile::Msts && Block::SameName(name.substr(0, 4), "ORTS");
    }

    const Vehicle::Entry &entryOf(const Hit &hit) const { return m_vehicle.Entries()[hit.entry]; }
    Block blockOf(const Hit &hit) const { return m_vehicle.BlockOf(entryOf(hit)); }

    /// A later file replaces all couplers of an earlier one.
    void keepLastFile(Slot slot)
    {
        if (m_hits[Couplings].empty())
            return;
        const std::uint32_t file = entryOf(m_hits[Couplings].back()).file;
        std::erase_if(m_hits[slot], [&](const Hit &hit) { return entryOf(hit).file != file; });
    }
    /// Only the last of several such blocks counts, as a whole.
    void keepBelowLast(Slot block, std::initializer_list<Slot> slots)
    {
        if (m_hits[block].empty())
            return;
        const std::uint32_t first = m_hits[block].back().entry;
        for (const Slot slot : slots)
            std::erase_if(m_hits[slot], [&](const Hit &hit) { return hit.entry < first; });
    }

    std::string textOf(Slot slot) const
    {
        return m_hits[slot].empty() ? std::string() : blockOf(m_hits[slot].back()).Value();
    }

    Figure read(const Hit &hit, const char *rule, Measure measure, std::size_t index = 0)
    {
        Figure figure;
        figure.rule = rule;
        figure.text = blockOf(hit).Value(index);
        figure.file = entryOf(hit).file;
        const Quantity quantity = ReadQuantity(figure.text, measure);
        figure.value = quantity.value;
        switch (quantity.state) {
        case Quantity::State::Given:
            figure.state = quantity.value < 0 ? Figure::State::Negative : Figure::State::Known;
            break;
        case Quantity::State::NotGiven:
            break;
        case Quantity::State::Unreadable:
            figure.state = Figure::State::Unreadable;
            break;
        case Quantity::State::NotFinite:
            figure.state = Figure::State::NotFinite;
            break;
        }
        if (m_wanted == Wanted::Everything || figure.IsFaulty())
            figure.line = m_lines[figure.file].LineOf(blockOf(hit).Where());
        return figure;
    }
    Figure last(Slot slot, const char *rule, Measure measure)
    {
        return m_hits[slot].empty() ? Figure() : read(m_hits[slot].back(), rule, measure);
    }

    /// Adds a part of a sum. Parts that are not given count nothing; a faulty one decides.
    static void add(Figure &sum, const Figure &part)
    {
        if (sum.IsFaulty() || part.text.empty())
            return;
        if (part.IsFaulty()) {
            sum = part;
            return;
        }
        if (!sum.IsKnown()) {
            sum = part;
        } else if (part.IsKnown()) {
            sum.value += part.value;
            if (sum.text.size() < kLongestSum)
                sum.text += " + " + part.text;
        }
        if (sum.IsKnown() && !std::isfinite(sum.value))
            sum.state = Figure::State::NotFinite;
    }

    /// A value of 0 means that the author set none.
    static Figure positive(Figure figure)
    {
        if (figure.IsKnown() && figure.value == 0)
            figure.state = Figure::State::NotGiven;
        return figure;
    }

    void readTexts()
    {
        const bool isEngineFile =
            !m_out.files.empty() && host::path::HasExtension(m_out.files.front(), "eng");
        m_out.isEngine = m_hasEngine || isEngineFile;
        if (m_wanted == Wanted::Everything)
            readName();
        m_out.wagonType = textOf(WagonType);
        m_out.engineType = textOf(EngineType);
        m_out.brakeSystem = textOf(BrakeSystem);
        m_out.hasEffortCurves = !m_hits[ForceCurves].empty();
    }

    void readName()
    {
        for (const char *const path : {"Engine/Name", "Wagon/Name"})
            if (const auto name = m_vehicle.Find(path); name && m_out.name.empty())
                m_out.name = name->text;
    }

    void readBody()
    {
        m_out[FigureId::Length] = length();
        m_out[FigureId::BrakeForce] = last(MaxBrakeForce, "MaxBrakeForce", Measure::Force);
        m_out[FigureId::Passengers] = last(Capacity, "PassengerCapacity", Measure::Count);
        Figure axles = last(NumberAxles, "ORTSNumberAxles", Measure::Count);
        if (m_out.isEngine) {
            const bool isSum = axles.IsKnown() && !m_hits[NumberDriveAxles].empty();
            add(axles, last(NumberDriveAxles, "ORTSNumberDriveAxles", Measure::Count));
            if (isSum && axles.IsKnown())
                axles.rule = "ORTSNumberAxles + ORTSNumberDriveAxles";
        }
        if (axles.state == Figure::State::NotGiven)
            axles = last(NumWheels, kNumWheels, Measure::Count);
        m_out[FigureId::Axles] = axles;
    }

    Figure length()
    {
        if (m_hits[Size].empty())
            return {};
        const Hit &hit = m_hits[Size].back();
        const Block block = blockOf(hit);
        // In "3 m 4 m 18 m" without quotes, the third value is not the length.
        for (const std::size_t index : {0u, 1u})
            if (Figure other = read(hit, "Size", Measure::Length, index);
                other.state == Figure::State::Unreadable) {
                for (std::size_t i = index + 1; i < std::min<std::size_t>(block.ValueCount(), 6);
                     ++i)
                    other.text += ' ' + block.Value(i);
                return other;
            }
        return read(hit, "Size", Measure::Length, 2);
    }

    void readMass()
    {
        Figure empty = last(EmptyWeight, "WagonEmptyWeight", Measure::Mass);
        m_out[FigureId::EmptyMass] = empty;
        Figure &mass = m_out[FigureId::Mass];
        if (empty.state == Figure::State::NotGiven) {
            mass = last(Mass, "Mass", Measure::Mass);
            return;
        }
        mass = empty;
        for (const Hit &hit : m_hits[StaticWeight])
            add(mass, read(hit, "FreightWeight", Measure::Mass));
        if (const Hit *const load = loadAtStart())
            add(mass, read(*load, "FreightWeightWhenFull", Measure::Mass));
        if (mass.IsKnown())
            mass.rule = "WagonEmptyWeight + freight";
    }

    /// Returns the weight of the first load that is full at the start; null if there is none.
    const Hit *loadAtStart() const
    {
        for (const Hit &full : m_hits[FullAtStart]) {
            const Quantity value = ReadQuantity(blockOf(full).Value(), Measure::Count);
            if (!value.IsGiven() || value.value != 1)
                continue;
            const std::uint32_t load = entryOf(full).parent;
            const Hits &weights = m_hits[FullWeight];
            const auto found = std::find_if(weights.begin(), weights.end(), [&](const Hit &hit) {
                return entryOf(hit).parent == load;
            });
            return found == weights.end() ? nullptr : &*found;
        }
        return nullptr;
    }

    void readCouplers()
    {
        for (const Hit &hit : m_hits[CouplerType])
            if (m_out.couplers.size() < kMostCouplers)
                m_out.couplers.push_back(blockOf(hit).Value());
        Figure &weakest = m_out[FigureId::CouplerBreak];
        for (const Hit &hit : m_hits[Break])
            for (const std::size_t index : {0u, 1u}) {
                const Figure force = positive(read(hit, "Break", Measure::Force, index));
                if (force.IsFaulty()) {
                    weakest = force;
                    return;
                }
                if (force.IsKnown() && (!weakest.IsKnown() || force.value < weakest.value))
                    weakest = force;
            }
    }

    void readTraction()
    {
        Figure power = last(MaxPower, "MaxPower", Measure::Power);
        Figure starting = last(MaxForce, "MaxForce", Measure::Force);
        Figure primeMovers;
        for (const Hit &hit : m_hits[MaximalPower])
            add(primeMovers, read(hit, "ORTSDieselEngines", Measure::Power));
        if (primeMovers.state == Figure::State::NotGiven)
            primeMovers = last(ShaftPower, "ORTSDieselEngineMaxPower", Measure::Power);
        // A driving trailer does not pull.
        const bool hasTraction = m_out.isEngine && !Block::SameName(m_out.engineType, "Control");
        set(FigureId::Power, std::move(power), hasTraction);
        set(FigureId::PrimeMoverPower, std::move(primeMovers), hasTraction);
        set(FigureId::ContinuousEffort, continuousEffort(starting), hasTraction);
        set(FigureId::StartingEffort, std::move(starting), hasTraction);
        set(FigureId::MaximumSpeed, positive(last(MaxVelocity, "MaxVelocity", Measure::Speed)),
            m_out.isEngine);
    }
    Figure continuousEffort(const Figure &starting)
    {
        Figure own = positive(last(ContinuousForce, "MaxContinuousForce", Measure::Force));
        const bool isOwn = own.state != Figure::State::NotGiven;
        Figure effort = isOwn ? std::move(own) : starting;
        if (m_out.hasEffortCurves && effort.IsKnown())
            effort.rule = isOwn ? "MaxContinuousForce, curve" : "MaxForce, curve";
        return effort;
    }
    void set(FigureId id, Figure &&figure, bool applies)
    {
        if (!applies && figure.state == Figure::State::NotGiven)
            figure.state = Figure::State::NotApplicable;
        m_out[id] = std::move(figure);
    }

    static constexpr std::size_t kMostCouplers = 4;
    static constexpr std::size_t kLongestSum = 1000; ///< texts of more parts are cut off
    const Vehicle &m_vehicle;
    const Wanted m_wanted;
    std::vector<LineCounter> m_lines;
    std::array<Hits, Slots> m_hits;
    bool m_hasEngine = false;
    VehicleFigures m_out;
};

} // namespace

const char *FigureName(FigureId id)
{
    constexpr std::array<const char *, kFigures> kNames = {"length",
                                                           "mass",
                                                           "empty mass",
                                                           "power",
                                                           "prime movers",
                                                           "starting effort",
                                                           "continuous effort",
                                                           "maximum speed",
                                                           "brake force",
                                                           "weakest coupler",
                                                           "axles",
                                                           "passengers"};
    return kNames[static_cast<std::size_t>(id)];
}

const char *Figure::Reason() const
{
    constexpr std::array kReasons = {"",           "not-given",  "not-applicable",
                                     "unreadable", "not-finite", "negative"};
    return IsKnown() ? rule : kReasons[static_cast<std::size_t>(state)];
}

VehicleFigures FiguresOf(const Vehicle &vehicle)
{
    return Reader(vehicle, Wanted::Everything).Read();
}

VehicleFigures FaultyFiguresOf(const Vehicle &vehicle)
{
    return Reader(vehicle, Wanted::Faults).Read();
}

} // namespace content
