// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"

namespace korvat {

/// Adds the matrices of a shape to its model, with the hierarchy of a level and the animation.
/// Repairs keys that are out of order, and leaves out those that are not finite.
void AddJoints(const Shape &shape, const Level &level, Model &model);

/// Adds the distances of the levels of detail to a model. Where parts of the shape have separate
/// levels, those of the part with most of them count.
void AddLevels(const Shape &shape, Model &model);

} // namespace korvat
