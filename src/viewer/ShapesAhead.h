// SPDX-License-Identifier: MIT
#pragma once

#include "host/Ahead.h"
#include "install/Environment.h"
#include "korvat/model/ModelSource.h"
#include "viewer/VehicleReader.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// Reads shapes, those that vehicles add, and their textures ahead on threads, so that loading them
/// into a scene finds everything in memory. Reads each file once and assumes that the scene holds
/// what it has loaded. Does not report what cannot be read; loading it does.
class ShapesAhead
{
public:
    /// The content of one file, empty if it could not be read. While it is held, loading the file
    /// does not read it again.
    struct Held
    {
        std::vector<std::shared_ptr<const korvat::Model>> models; ///< the file's own first
        std::vector<korvat::TexturePtr> pictures;
    };

    /// `files` are engine, wagon or shape files, distinguished by extension; "" for none.
    ShapesAhead(const install::Environment &environment, std::shared_ptr<VehicleReader> vehicles,
                std::vector<std::string> files);

    /// True if Take would not wait.
    bool Ready();
    /// Waits for the next file and returns its content; empty after the last one.
    Held Take();

private:
    static Held read(const install::Environment &environment, VehicleReader &vehicles,
                     const std::string &file);

    std::optional<Held> m_next;
    host::Ahead<Held> m_ahead;
};

} // namespace viewer
