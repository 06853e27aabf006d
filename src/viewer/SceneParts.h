// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace viewer {

class ViewObjects;

/// A matrix of a shape.
struct ShapePart
{
    std::string name;
    int parent = -1;    ///< index of the part that it moves with, -1 for none
    bool drawn = false; ///< false for a part that only moves others
};

/// The parts of one shape of a scene.
struct ShapeParts
{
    std::string file;
    std::vector<ShapePart> parts;
};

/// Parts beyond this number are not listed. Real shapes have up to 59.
inline constexpr std::size_t kMostParts = 1000;

/// Returns the parts of all shapes of the scene, each file once: the shape of a vehicle, then those
/// that it adds.
std::vector<ShapeParts> PartsOf(const ViewObjects &objects);

/// The distances of a level of detail among the shapes of a scene, in metres.
struct LevelDistances
{
    float least = 0, most = 0;
    friend bool operator==(const LevelDistances &, const LevelDistances &) = default;
};

/// Returns the levels of detail of the scene's vehicles, from near to far. There are as many as the
/// vehicle with most of them has.
std::vector<LevelDistances> LevelsOf(const ViewObjects &objects);

/// Returns what levels and animations of the scene's shapes lack, one sentence for each fault of a
/// file.
std::vector<std::string> FaultsOf(const ViewObjects &objects);

} // namespace viewer
