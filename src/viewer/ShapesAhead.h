// SPDX-License-Identifier: MIT
#pragma once

#include "host/Ahead.h"
#include "korvat/model/ModelSource.h"
#include "viewer/Services.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// Reads shapes with their textures ahead on a thread, in order, so that loading them into a scene
/// afterwards finds everything there. It says nothing about what cannot be read: loading it tells.
class ShapesAhead
{
public:
    /// What was read for one file, if anything; whoever holds it need not wait for the files again.
    struct Held
    {
        std::shared_ptr<const korvat::Model> model;
        std::vector<korvat::TexturePtr> pictures;
    };

    /// Engine, wagon or shape files, by their extensions; "" for none.
    ShapesAhead(const Services &services, std::vector<std::string> files);

    /// Whether Take would not wait.
    bool Ready();
    /// What was read for the next file; waits for it. Nothing was read after the last one.
    Held Take();

private:
    static Held read(const Services &services, const std::string &file);

    std::optional<Held> m_next;
    host::Ahead<Held> m_ahead;
};

} // namespace viewer
