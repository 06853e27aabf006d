// SPDX-License-Identifier: MIT
#pragma once

#include "samples/MeshBuilder.h"
#include "samples/Script.h"

#include <string>
#include <vector>

namespace samples {

/// Builds the model that scripts describe, with its texture.
class Modeller : public MeshBuilder
{
public:
    /// The texture starts as a square of `side` pixels in the colour `ground`.
    Modeller(int side, Colour ground, std::vector<std::string> images = {},
             std::vector<Surface> looks = std::vector<Surface>(1));
    Modeller(const Modeller &) = delete;
    Modeller &operator=(const Modeller &) = delete;

    /// Scales all patches painted from now on by `share`, to at least `least` pixels a side.
    void Scale(float share, int least);

    Script script;
    Sheet sheet;

private:
    void addPaint();
    void addSolids();
    Patch paint(int wide, int high, const Window &window, const Arguments &how);
    void paintSide(Arguments &a);
    void wall(float side, const Value &stretch, const Value &shape, const Value &windows,
              float middle, bool inside);

    Brush *m_brush = nullptr; ///< of the patch that is being painted
    float m_scale = 1;
    int m_least = 1;
};

} // namespace samples
