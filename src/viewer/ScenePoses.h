// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Pose.h"
#include "viewer/ViewOptions.h"

#include <map>
#include <memory>
#include <string>
#include <tuple>

class TSViewObject;

namespace viewer {

/// Returns the entry of ViewOptions::hiddenParts for a part of a shape.
std::string PartKey(const std::string &shapeFile, const std::string &part);

/// Makes the poses of a frame. Equal vehicles that face the same way share theirs.
class ScenePoses
{
public:
    /// `distance` is how far the train has rolled forwards, in metres. Both must outlive the poses.
    ScenePoses(const ViewOptions &options, float distance);

    /// Gives an object and what it adds their poses.
    void Apply(TSViewObject &object);

private:
    korvat::PosePtr poseOf(const std::shared_ptr<const korvat::Model> &model,
                           const std::string &file, const korvat::Movement &movement);

    const ViewOptions &m_options;
    float m_distance;
    bool m_atRest;
    using Key = std::tuple<const korvat::Model *, float, float, float, std::string>;
    std::map<Key, korvat::PosePtr> m_made;
};

} // namespace viewer
