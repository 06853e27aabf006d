// SPDX-License-Identifier: MIT
#pragma once

#include "install/Environment.h"
#include "install/Train.h"
#include "viewer/VehicleReader.h"

#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

class TSView;

namespace viewer {

/// Places the vehicles of a train end to end in a scene, one per step, so that the window stays
/// responsive. The front of the first vehicle is at Z = 0; the others follow towards negative Z. A
/// vehicle has the length given in its stock file or, if there is none, the length of its shape. A
/// flipped vehicle is loaded at the mirrored place and turned by 180 degrees about the scene's
/// origin, which brings it to its place, facing the other way.
///
/// Each vehicle gets the shapes that it adds to its own; only at the ends of the train are its
/// couplers free.
///
/// Reports what cannot be loaded or placed in a message box, and leaves a gap of the known length.
class ConsistLayout
{
public:
    /// `installFolder` is the Train Simulator folder. `view` must outlive the layout; `trainCfg`
    /// and its file need not.
    ConsistLayout(const install::Environment &environment, std::string installFolder,
                  const StfNode &trainCfg, TSView &view, std::shared_ptr<VehicleReader> vehicles);

    /// Places the next vehicle; returns false if none is left.
    bool Step();

    /// Returns the stock file of each vehicle in the order of the steps; "" if the train names
    /// none.
    std::vector<std::string> StockFiles() const;
    int Total() const { return static_cast<int>(m_units.size()); }
    int Done() const { return static_cast<int>(m_next); }
    /// Returns the Z of the far end of the vehicles placed so far: minus their length.
    float End() const { return m_end; }
    /// Returns how the vehicle of an object of the scene is called: its number in the train, file,
    /// folder and the name that the simulator shows. The object counts from 1.
    const std::string &NameOf(int place) const
    {
        return m_names.at(static_cast<std::size_t>(place - 1));
    }
    /// Returns the visible defects (ShapeModel::Problems), without duplicates.
    const std::vector<std::string> &Problems() const { return m_problems; }
    /// Returns what is missing from the shapes that vehicles add, without duplicates.
    const std::vector<std::string> &Lacks() const { return m_lacks; }

private:
    void place(const install::Unit &unit);
    void placeStock(const std::string &stockFile, const install::StockItem &item, bool flipped);
    void addShapes(const std::string &stockFile, std::optional<float> length, bool flipped);
    bool load(const std::string &shapeFile, const std::string &name, float z, float degrees);
    void collectProblems();
    std::string freshKey(const std::string &name);

    install::Environment m_environment;
    std::string m_installFolder;
    std::vector<install::Unit> m_units;
    TSView &m_view;
    std::shared_ptr<VehicleReader> m_vehicles;
    std::size_t m_next = 0;
    float m_end = 0;
    std::vector<std::string> m_names; ///< by object of the scene
    std::vector<std::string> m_problems, m_lacks;
    std::mt19937_64 m_random;
};

} // namespace viewer
