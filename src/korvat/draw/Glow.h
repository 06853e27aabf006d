// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"
#include "korvat/model/Transform.h"

#include <array>
#include <map>
#include <memory>

namespace korvat {

class Renderer;

/// A lamp as a bright spot with soft edges.
struct Glow
{
    Vec3 at;          ///< in the world
    Vec3 along;       ///< the direction of its light, of length 1
    float radius = 1; ///< metres
    Tint colour;      ///< alpha is its strength
};

/// Draws glows as additive pictures that face the camera.
class Glows
{
public:
    /// Adds a glow to the frame that the renderer has begun, as its camera sees it. Seen from
    /// behind, it is weak.
    void Add(Renderer &renderer, const Glow &glow);

private:
    std::shared_ptr<const Model> modelOf(const Tint &colour);

    std::map<std::array<float, 4>, std::shared_ptr<const Model>> m_models; ///< by colour
};

} // namespace korvat
