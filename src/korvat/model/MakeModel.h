// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"

namespace korvat {

/// Converts a shape to a model: the nearest level of detail of each part in the rest pose, with all
/// matrices applied to the vertices. The texture slots are the shape's images. Leaves out triangles
/// that refer to something missing or have a corner that is not finite. See docs/formats.md,
/// "Drawing a shape".
Model MakeModel(const Shape &shape);

} // namespace korvat
