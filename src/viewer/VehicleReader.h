// SPDX-License-Identifier: MIT
#pragma once

#include "content/AddedShapes.h"
#include "content/VehicleBoxes.h"
#include "content/VehicleLights.h"
#include "host/Snapshot.h"
#include "viewer/StockShape.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace install {
struct Environment;
}

namespace viewer {

/// How the vehicles of a scene are read.
struct Reading
{
    content::Profile profile = content::Profile::Msts; ///< the simulator whose vehicles are shown
    bool allAdded = false; ///< also what only Open Rails adds to a vehicle of MSTS

    friend bool operator==(const Reading &, const Reading &) = default;
};

/// Returns the reading that the user has chosen for the current installation.
Reading ChosenReading(const install::Environment &environment);

/// The radii of a vehicle's wheels, in metres; 0 if they are not known.
struct Wheels
{
    float radius = 0;
    float driven = 0; ///< of the wheels that an engine drives
};

/// Reads what a scene shows of vehicles. Reads each file once and assumes that files do not change
/// meanwhile. Thread-safe.
class VehicleReader
{
public:
    /// `files` must outlive the reader.
    VehicleReader(host::GameFiles &files, Reading reading);

    /// True if the simulator finds the vehicle of this engine or wagon file.
    bool Exists(const std::string &stockFile);
    /// Like ReadStockShape, but returns the shape and the length that the simulator uses.
    StockShape Shape(const std::string &stockFile);
    /// Returns the length that the simulator uses, in metres; nothing if the vehicle gives none or
    /// cannot be read.
    std::optional<float> Length(const std::string &stockFile);
    /// Returns the shapes that the vehicle adds; none if it cannot be read.
    std::shared_ptr<const content::AddedShapes> Added(const std::string &stockFile);
    /// Returns the wheels that the simulator turns; unknown ones if the vehicle cannot be read.
    Wheels WheelsOf(const std::string &stockFile);
    /// Return the vehicle's lights and boxes; none if it cannot be read.
    std::shared_ptr<const content::VehicleLights> Lights(const std::string &stockFile);
    std::shared_ptr<const content::VehicleBoxes> Boxes(const std::string &stockFile);

private:
    struct Kept
    {
        std::once_flag once;
        content::AddedShapes added;
        content::VehicleLights lights;
        content::VehicleBoxes boxes;
        Wheels wheels;
    };
    StockShape readShape(const std::string &stockFile);
    content::VehicleFiles filesOf(const std::string &stockFile);
    std::shared_ptr<const Kept> keptOf(const std::string &stockFile);
    void read(const std::string &stockFile, Kept &kept);

    host::GameFiles &m_files;
    Reading m_reading;
    host::Snapshot m_folders;
    content::FileStore m_store{m_folders};
    std::mutex m_mutex;
    std::map<std::string, std::shared_ptr<Kept>> m_kept; ///< by the stock file
    std::map<std::string, StockShape> m_shapes;          ///< by the stock file
};

/// Like ReadStockShapeToShow, for the simulator of the current installation.
StockShape ReadVehicleToShow(const install::Environment &environment, const std::string &stockFile);

} // namespace viewer
