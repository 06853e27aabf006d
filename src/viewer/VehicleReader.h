// SPDX-License-Identifier: MIT
#pragma once

#include "content/AddedShapes.h"
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
};

/// Returns the reading that the user has chosen for the current installation.
Reading ChosenReading(const install::Environment &environment);

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

private:
    struct Kept
    {
        std::once_flag once;
        std::shared_ptr<const content::AddedShapes> added;
    };
    StockShape readShape(const std::string &stockFile);
    content::VehicleFiles filesOf(const std::string &stockFile);
    content::AddedShapes read(const std::string &stockFile);

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
