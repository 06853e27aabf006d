// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"

#include <cstdint>
#include <vector>

namespace korvat {

/// The parts of a model as a device draws them: those that look alike are one run of triangles.
struct MergedParts
{
    std::vector<std::uint32_t> indices; ///< into the model's vertices
    std::vector<Part> parts;            ///< their runs of `indices`
};

/// Merges parts with the same texture and surface wherever they are in the model, but `byJoint`
/// only those of the same joint, which move together. Solid parts come first, then alpha-tested
/// ones. Parts that may be blended are not merged and stay in file order behind them, since their
/// order is visible.
MergedParts MergeParts(const Model &model, bool byJoint = false);

} // namespace korvat
