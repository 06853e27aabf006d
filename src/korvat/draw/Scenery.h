// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/ModelSource.h"
#include "korvat/model/Transform.h"

#include <memory>

namespace korvat {

class Renderer;

/// The surroundings of every scene: grass, and a straight track along Z with the top of its rails
/// at Y = 0. They move with the camera, so that their end is never visible. All scenes share one
/// copy.
class Scenery
{
public:
    /// Adds ground and track around the camera to the renderer's new frame.
    static void AddTo(Renderer &renderer, Vec3 eye);
    /// Adds a shade under every vehicle of that frame.
    static void AddShades(Renderer &renderer);

private:
    Scenery();
    static const Scenery &shared();

    std::shared_ptr<const Model> m_ground, m_track, m_shade;
    std::vector<TexturePtr> m_groundTextures, m_trackTextures, m_shadeTextures;
};

} // namespace korvat
