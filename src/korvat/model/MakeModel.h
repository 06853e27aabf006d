// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"

namespace korvat {

/// Converts a shape to a model: one level of detail of each part (LevelsAt) in the rest pose, with
/// all matrices applied to the vertices. The texture slots are the shape's images. Leaves out
/// triangles that refer to something missing or have a corner that is not finite. See
/// docs/formats.md, "Drawing a shape".
Model MakeModel(const Shape &shape, int level = 1);

} // namespace korvat
