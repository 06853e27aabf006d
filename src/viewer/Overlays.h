// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Glow.h"
#include "korvat/draw/Lines.h"
#include "viewer/ViewOptions.h"

#include <memory>
#include <optional>

namespace korvat {
class Renderer;
}

namespace viewer {

class ViewObjects;

/// What a scene shows besides its shapes, or instead of their surfaces: lights, boxes, lines, and
/// the marks of missing textures.
class Overlays
{
public:
    /// Sets the light of the scene, before its frame begins.
    static void SetLight(korvat::Renderer &renderer, const ViewObjects &objects,
                         const ViewOptions &options);
    /// Adds to the frame that the renderer has begun, after all shapes.
    void AddTo(korvat::Renderer &renderer, const ViewObjects &objects, const ViewOptions &options);

private:
    void addLines(korvat::Renderer &renderer, const ViewOptions &options);
    void addBoxes(korvat::Renderer &renderer, const ViewObjects &objects);
    void addGlows(korvat::Renderer &renderer, const ViewObjects &objects,
                  const ViewOptions &options);

    korvat::Glows m_glows;
    std::optional<korvat::LineModels> m_edges, m_normals;
    bool m_edgesAreBright = false;
    std::shared_ptr<const korvat::Model> m_sizeBox, m_couplerBox;
};

} // namespace viewer
