// SPDX-License-Identifier: MIT
#include "content/VehicleCatalogue.h"

#include "content/OwnListings.h"
#include "content/References.h"
#include "content/TrainSheet.h"
#include "host/Ahead.h"
#include "host/Text.h"
#include "install/StockFiles.h"

#include <algorithm>
#include <map>
#include <new>
#include <utility>

namespace content {
namespace {

std::string fileOf(const install::StockItem &item)
{
    return install::StockFileName(item.type, item.shape);
}

std::string keyOf(const install::StockItem &item)
{
    return host::ToUpper(item.folder + '/' + fileOf(item));
}

/// Vehicles by their names in upper case.
using Catalogue = std::map<std::string, CataloguedVehicle>;

bool addInstalled(OwnListings &disk, Catalogue &catalogue, const GoOn &goOn)
{
    constexpr std::size_t kExtension = 4;
    for (const std::string &folder :
         install::StockFolders(disk.snapshot, disk.folders.trainset, {}))
        for (std::string &name :
             install::StockFiles(disk.snapshot, disk.folders.trainset, folder)) {
            if (goOn && !goOn(0, 0))
                return false;
            const std::string extension = host::ToLower(name.substr(name.size() - kExtension));
            const bool isEngine = extension == ".eng";
            if (!isEngine && extension != ".wag")
                continue;
            name.resize(name.size() - kExtension);
            CataloguedVehicle entry{
                {isEngine ? install::kEngine : install::kWagon, folder, std::move(name)}, true, 0};
            catalogue.emplace(keyOf(entry.vehicle), std::move(entry));
        }
    return true;
}

/// The vehicle that a data block names. A folder name with blanks and without quotes is several
/// values, which are joined.
install::StockItem vehicleOf(const Block &data)
{
    install::StockItem item{
        data.Is("EngineData") ? install::kEngine : install::kWagon, {}, data.Value()};
    for (std::size_t i = 1; i < data.ValueCount(); ++i)
        item.folder += (i == 1 ? "" : " ") + data.Value(i);
    return item;
}

/// Returns the vehicles of a consist in file order.
std::vector<install::StockItem> vehiclesIn(OwnListings &disk, const std::string &path)
try {
    const ReadResult read = disk.store.Read(path);
    std::vector<install::StockItem> items;
    if (!read.source)
        return items;
    for (const UnitReference &unit : UnitsOfConsist(*read.source, {}))
        if (!unit.data.Is("EOTData") && unit.data.ValueCount() > 1)
            items.push_back(vehicleOf(unit.data));
    return items;
} catch (const std::bad_alloc &) { // must not leave the worker
    return {};
}

void addNamed(OwnListings &disk, Catalogue &catalogue, const GoOn &goOn)
{
    const std::vector<std::string> names = disk.snapshot.ListFiles(disk.folders.consists, "*.con");
    host::Ahead<std::vector<install::StockItem>> reads(names.size(), [&](std::size_t index) {
        return vehiclesIn(disk, host::path::Join(disk.folders.consists, names[index]));
    });
    while (auto items = reads.Take()) {
        for (install::StockItem &item : *items) {
            CataloguedVehicle &entry = catalogue[keyOf(item)];
            ++entry.units;
            if (entry.vehicle.type.empty())
                entry.vehicle = std::move(item);
        }
        if (goOn && !goOn(reads.Taken(), names.size()))
            return;
    }
}

/// True for a vehicle of which there is only a file for Open Rails.
bool isOverride(OwnListings &disk, const install::StockItem &item)
{
    const std::string folder =
        host::path::Join(host::path::Join(disk.folders.trainset, item.folder), "OpenRails");
    return !item.folder.empty() && disk.store.Find(host::path::Join(folder, fileOf(item)));
}

/// Returns only what NearestVehicles compares, since there may be tens of thousands.
std::shared_ptr<const VehicleFigures> comparedFigures(const VehicleFigures &all)
{
    auto figures = std::make_shared<VehicleFigures>();
    figures->wagonType = all.wagonType;
    figures->engineType = all.engineType;
    figures->couplers = all.couplers;
    Figure &length = (*figures)[FigureId::Length];
    length.state = all[FigureId::Length].state;
    length.value = all[FigureId::Length].value;
    return figures;
}

/// Returns null if the vehicle is missing or cannot be read.
std::shared_ptr<const VehicleFigures> figuresOf(const FigureCache &cache,
                                                const install::StockItem &item)
try {
    const SheetVehicle vehicle = cache.Read(item);
    return vehicle.fault.empty() ? comparedFigures(vehicle.figures) : nullptr;
} catch (const std::bad_alloc &) { // must not leave the worker
    return nullptr;
}

} // namespace

std::vector<CataloguedVehicle> VehicleCatalogue(const std::string &folder, const GoOn &goOn)
{
    OwnListings disk(folder);
    Catalogue catalogue;
    if (addInstalled(disk, catalogue, goOn))
        addNamed(disk, catalogue, goOn);
    std::vector<CataloguedVehicle> vehicles;
    for (auto &[key, entry] : catalogue) {
        entry.isInstalled = entry.isInstalled || isOverride(disk, entry.vehicle);
        vehicles.push_back(std::move(entry));
    }
    return vehicles;
}

std::vector<install::StockItem> InstalledVehicles(const std::string &folder, const GoOn &goOn)
{
    OwnListings disk(folder);
    Catalogue catalogue;
    addInstalled(disk, catalogue, goOn);
    std::vector<install::StockItem> vehicles;
    for (auto &[key, entry] : catalogue)
        vehicles.push_back(std::move(entry.vehicle));
    return vehicles;
}

std::vector<ReplacementCandidate> ReadCandidates(const std::string &folder,
                                                 const install::StockItem &vehicle,
                                                 const std::vector<install::StockItem> &installed,
                                                 const GoOn &goOn)
{
    OwnListings disk(folder);
    const FigureCache cache(disk.store, disk.folders, Profile::OpenRails);
    const std::shared_ptr<const VehicleFigures> figures = figuresOf(cache, vehicle);
    std::vector<ReplacementCandidate> candidates;
    for (const install::StockItem &item : installed)
        if (item.type == vehicle.type)
            candidates.push_back({item, nullptr, {}});
    if (figures) {
        using Read = std::shared_ptr<const VehicleFigures>;
        host::Ahead<Read> reads(candidates.size(), [&](std::size_t index) {
            return figuresOf(cache, candidates[index].vehicle);
        });
        while (auto read = reads.Take()) {
            const std::size_t done = reads.Taken();
            candidates[done - 1].figures = std::move(*read);
            if (goOn && !goOn(done, candidates.size()))
                break;
        }
    }
    return NearestVehicles(vehicle, figures.get(), std::move(candidates));
}

} // namespace content
