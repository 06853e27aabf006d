// SPDX-License-Identifier: MIT
#pragma once

#include "content/Resolver.h"
#include "content/VehicleFigures.h"
#include "install/Train.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <shared_mutex>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace content {

/// A vehicle that units name, with its figures.
struct SheetVehicle
{
    std::string name;       ///< "FOLDER/NAME.wag", spelled as the unit names it
    std::string path;       ///< of the file that the simulator loads; "" if it is missing
    std::string fault;      ///< why the figures are not known; "" if they are
    VehicleFigures figures; ///< none is known if there is a fault

    bool IsMissing() const { return path.empty(); }
};

/// The vehicles of an installation and their figures, each read once. Thread-safe: several threads
/// may fill the cache while others ask for what is known.
class FigureCache
{
public:
    /// Both must outlive this object.
    FigureCache(FileStore &store, const InstallFolders &folders, Profile profile)
        : m_store(store)
        , m_folders(folders)
        , m_profile(profile)
    {
    }

    /// Returns the vehicle of a unit, after reading it if it is not known yet. Never null.
    std::shared_ptr<const SheetVehicle> Get(const install::StockItem &item);
    /// Returns the vehicle of a unit without access to the disk; null if it was not read yet.
    std::shared_ptr<const SheetVehicle> Known(const install::StockItem &item) const;
    /// Reads the vehicle of a unit and does not keep it.
    SheetVehicle Read(const install::StockItem &item) const;

private:
    FileStore &m_store;
    const InstallFolders &m_folders;
    Profile m_profile;
    mutable std::shared_mutex m_mutex;
    std::unordered_map<std::string, std::shared_ptr<const SheetVehicle>> m_known; ///< upper case
};

/// A figure of a train: a sum, or the lowest value of all vehicles that have one.
struct SheetFigure
{
    std::optional<double> value;      ///< nothing if vehicles should give the figure and none does
    std::size_t knownUnits = 0;       ///< the units that give it
    std::vector<std::string> unknown; ///< the vehicles without the figure, each once
    std::size_t unknownUnits = 0;     ///< the units with these vehicles
    std::string limitedBy;            ///< the vehicle with the lowest value; "" for a sum
};

/// The figures of a train, summed unit by unit. Adding a unit takes constant time.
class TrainSheet
{
public:
    /// `ownMaximum` is the MaxVelocity of the consist in m/s. If it is set (positive and not 40),
    /// the speeds of the vehicles do not matter.
    explicit TrainSheet(std::optional<double> ownMaximum = std::nullopt);

    void Add(const SheetVehicle &vehicle);

    std::size_t Units() const { return m_units; }
    /// Returns a figure. The speed and the break force of couplers are the lowest, all others sums.
    const SheetFigure &operator[](FigureId id) const
    {
        return m_figures[static_cast<std::size_t>(id)];
    }
    bool IsSpeedOfConsist() const { return m_ownMaximum; }
    /// Returns the brake systems and the number of units with each, in train order. Units without
    /// one are not counted.
    const std::vector<std::pair<std::string, std::size_t>> &BrakeSystems() const
    {
        return m_brakes;
    }
    bool HasMixedBrakes() const { return m_brakes.size() > 1; }
    /// Returns the number of units whose axles come from NumWheels.
    std::size_t UnitsByNumWheels() const { return m_byNumWheels; }
    /// Return the vehicles that are not installed, and those that cannot be read, each once.
    const std::vector<std::string> &Missing() const { return m_missing; }
    const std::vector<std::string> &Damaged() const { return m_damaged; }

private:
    SheetFigure &figure(FigureId id) { return m_figures[static_cast<std::size_t>(id)]; }
    void addFigure(FigureId id, const SheetVehicle &vehicle, bool isNew);
    void addBrakes(const std::string &system);

    bool m_ownMaximum = false;
    std::size_t m_units = 0, m_byNumWheels = 0;
    std::array<SheetFigure, kFigures> m_figures;
    std::vector<std::pair<std::string, std::size_t>> m_brakes;
    std::vector<std::string> m_missing, m_damaged;
    std::unordered_set<std::string> m_seen; ///< names in upper case
};

/// Returns the maximum speed that a consist sets: its MaxVelocity in m/s if that is positive and
/// not 40, which new consists have.
std::optional<double> OwnMaximumOf(const StfNode &trainCfg);

} // namespace content
