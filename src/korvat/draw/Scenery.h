// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Canvas.h"
#include "korvat/model/ModelSource.h"
#include "korvat/model/Transform.h"

#include <memory>

namespace korvat {

class Renderer;

/// The surroundings of every scene: clouds, grass, and a straight track along Z with the top of its
/// rails at Y = 0. They move with the camera, so that their end is never visible. From below, the
/// grass is translucent soil, so that the underside of a vehicle can be seen. All scenes share one
/// copy.
class Scenery
{
public:
    /// Adds the surroundings of the camera to the renderer's new frame.
    static void AddTo(Renderer &renderer, Vec3 eye, Ground ground);
    /// Adds a shade under every vehicle of that frame.
    static void AddShades(Renderer &renderer);

private:
    Scenery();
    static const Scenery &shared();

    std::shared_ptr<const Model> m_ground, m_soil, m_track, m_shade;
    TexturePtr m_clouds;
    std::vector<TexturePtr> m_groundTextures, m_soilTextures, m_nightSoilTextures, m_trackTextures,
        m_shadeTextures;
};

} // namespace korvat
