// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/ModelSource.h"
#include "korvat/model/Transform.h"

#include <memory>

namespace korvat {

class Renderer;

/// What every scene stands on: grass, and a straight track along Z with the top of its rails at
/// Y = 0. It goes along with the camera, so that its end is never seen; made once for all scenes.
class Scenery
{
public:
    /// Adds the ground and the track around the camera to the frame that the renderer has begun.
    static void AddTo(Renderer &renderer, Vec3 eye);
    /// Adds the shade under every vehicle of that frame.
    static void AddShades(Renderer &renderer);

private:
    Scenery();
    static const Scenery &shared();

    std::shared_ptr<const Model> m_ground, m_track, m_shade;
    std::vector<TexturePtr> m_groundTextures, m_trackTextures, m_shadeTextures;
};

} // namespace korvat
