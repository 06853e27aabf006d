// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"
#include "korvat/model/Transform.h"

#include <functional>
#include <memory>
#include <vector>

/// The parts of a model that move: wheels and their gear by the way that a vehicle has rolled,
/// pantographs when they are raised. As in the simulators, names decide, with letter case ignored:
///
/// - `WHEELS...` turns about its axle, once for each circumference. If the radius is not known,
///   its animation turns it; without one, the height of its axle counts as the radius.
/// - `PANTOGRAPH...` is at rest or, raised, as in the last keys of its animation.
/// - Doors, wipers, mirrors and unloading gear stay at rest, as do bogies on straight track.
/// - Any other animated part but the first belongs to the gear: its animation runs once for each
///   turn of the driven wheels.
namespace korvat {

/// What moves the parts of a vehicle.
struct Movement
{
    float distance = 0;       ///< metres that it has rolled forwards
    float wheelRadius = 0;    ///< metres; 0 if not known
    float driverRadius = 0;   ///< of the animated wheels of an engine; 0 if not known
    bool pantographs = false; ///< raised

    friend bool operator==(const Movement &, const Movement &) = default;
};

/// What differs from the rest pose, by the joints of a model.
struct Pose
{
    std::vector<Transform> moved; ///< applied to vertices at rest, before the model's place
    std::vector<bool> hidden;     ///< the joint's own parts are not drawn
    Bounds box;                   ///< around the model, moved or not
    Sphere bounds;

    bool Hides(const Part &part) const { return part.joint < hidden.size() && hidden[part.joint]; }
    /// Returns the place of a part of a model at `world`.
    Transform PlaceOf(const Part &part, const Transform &world) const
    {
        return part.joint < moved.size() ? moved[part.joint] * world : world;
    }
};

using PosePtr = std::shared_ptr<const Pose>;

/// Returns the pose of a model, in which the joints that `hides` names are hidden; null for the
/// rest pose with all parts. Joints that cannot be moved stay at rest.
PosePtr MakePose(const Model &model, const Movement &movement,
                 const std::function<bool(const Joint &)> &hides = nullptr);

/// Returns the local matrix of a joint at a frame of its animation. The first keys hold before
/// their frame, the last ones behind it; without keys of a kind, the rest counts.
Matrix LocalAt(const Joint &joint, double frame);

} // namespace korvat
