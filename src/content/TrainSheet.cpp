// SPDX-License-Identifier: MIT
#include "content/TrainSheet.h"

#include "content/References.h"
#include "content/Units.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <mutex>

namespace content {
namespace {

constexpr double kNotSet = 40; ///< the MaxVelocity that new consists have

std::string nameOf(const install::StockItem &item)
{
    return item.folder + '/' + install::StockFileName(item.type, item.shape);
}

bool isLowest(FigureId id)
{
    return id == FigureId::MaximumSpeed || id == FigureId::CouplerBreak;
}

/// True for figures that only some vehicles have, so that a missing entry means none.
bool isOptional(FigureId id)
{
    return id == FigureId::Passengers || id == FigureId::PrimeMoverPower;
}

bool isTraction(FigureId id)
{
    return id >= FigureId::Power && id <= FigureId::MaximumSpeed;
}

/// True if the train lacks this figure of a vehicle that does not give it.
bool isUnknown(FigureId id, const SheetVehicle &vehicle)
{
    const Figure &figure = vehicle.figures[id];
    if (figure.IsKnown() || figure.state == Figure::State::NotApplicable)
        return false;
    if (!vehicle.fault.empty() && isTraction(id))
        return host::path::HasExtension(vehicle.name, "eng");
    return figure.IsFaulty() || !isOptional(id);
}

} // namespace

std::shared_ptr<const SheetVehicle> FigureCache::Known(const install::StockItem &item) const
{
    const std::string key = host::ToUpper(nameOf(item));
    const std::shared_lock lock(m_mutex);
    const auto found = m_known.find(key);
    return found == m_known.end() ? nullptr : found->second;
}

std::shared_ptr<const SheetVehicle> FigureCache::Get(const install::StockItem &item)
{
    if (auto known = Known(item))
        return known;
    auto vehicle = std::make_shared<const SheetVehicle>(Read(item));
    const std::unique_lock lock(m_mutex);
    return m_known.try_emplace(host::ToUpper(vehicle->name), std::move(vehicle)).first->second;
}

SheetVehicle FigureCache::Read(const install::StockItem &item) const
{
    SheetVehicle vehicle;
    vehicle.name = nameOf(item);
    VehicleFiles files;
    if (!item.folder.empty() && !item.shape.empty() && vehicle.name.size() <= kMaxNameLength)
        files = FindVehicle(m_store, PathIn(m_folders.trainset, item.folder),
                            install::StockFileName(item.type, item.shape));
    vehicle.path = files.For(m_profile);
    if (vehicle.IsMissing()) {
        vehicle.fault = "the vehicle is not installed";
        return vehicle;
    }
    const Vehicle seen(m_store, files, m_profile);
    vehicle.fault = seen.Fault();
    if (vehicle.fault.empty() && !IsVehicle(seen))
        vehicle.fault = "there is no Wagon block";
    if (vehicle.fault.empty())
        vehicle.figures = FiguresOf(seen);
    return vehicle;
}

TrainSheet::TrainSheet(std::optional<double> ownMaximum)
    : m_ownMaximum(ownMaximum.has_value())
{
    for (std::size_t i = 0; i < kFigures; ++i)
        if (!isLowest(static_cast<FigureId>(i)))
            m_figures[i].value = 0;
    if (ownMaximum)
        figure(FigureId::MaximumSpeed).value = ownMaximum;
}

void TrainSheet::Add(const SheetVehicle &vehicle)
{
    ++m_units;
    const bool isNew = m_seen.insert(host::ToUpper(vehicle.name)).second;
    for (std::size_t i = 0; i < kFigures; ++i)
        addFigure(static_cast<FigureId>(i), vehicle, isNew);
    addBrakes(vehicle.figures.brakeSystem);
    const Figure &axles = vehicle.figures[FigureId::Axles];
    if (axles.IsKnown() && axles.rule == std::string_view(kNumWheels))
        ++m_byNumWheels;
    if (isNew && !vehicle.fault.empty())
        (vehicle.IsMissing() ? m_missing : m_damaged).push_back(vehicle.name);
}

void TrainSheet::addFigure(FigureId id, const SheetVehicle &vehicle, bool isNew)
{
    SheetFigure &total = figure(id);
    if (id == FigureId::MaximumSpeed && m_ownMaximum)
        return;
    if (isUnknown(id, vehicle)) {
        ++total.unknownUnits;
        if (isNew)
            total.unknown.push_back(vehicle.name);
        if (total.knownUnits == 0)
            total.value.reset();
        return;
    }
    const Figure &figure = vehicle.figures[id];
    if (!figure.IsKnown())
        return;
    ++total.knownUnits;
    if (!isLowest(id)) {
        total.value = total.value.value_or(0) + figure.value;
    } else if (!total.value || figure.value < *total.value) {
        total.value = figure.value;
        total.limitedBy = vehicle.name;
    }
}

void TrainSheet::addBrakes(const std::string &system)
{
    if (system.empty())
        return;
    const auto known = std::find_if(m_brakes.begin(), m_brakes.end(), [&](const auto &each) {
        return Block::SameName(each.first, system);
    });
    if (known == m_brakes.end())
        m_brakes.emplace_back(system, 1);
    else
        ++known->second;
}

std::optional<double> OwnMaximumOf(const StfNode &trainCfg)
{
    const std::string text = stavfile::ValueAt(stavfile::ChildOf(trainCfg, "MaxVelocity"), 0);
    const Quantity speed = ReadQuantity(text, Measure::Speed);
    if (!speed.IsGiven() || speed.value <= 0 || speed.value == kNotSet)
        return std::nullopt;
    return speed.value;
}

} // namespace content
