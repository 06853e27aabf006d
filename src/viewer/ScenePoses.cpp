// SPDX-License-Identifier: MIT
#include "viewer/ScenePoses.h"

#include "host/Text.h"
#include "viewer/TSViewObject.h"

namespace viewer {

std::string PartKey(const std::string &shapeFile, const std::string &part)
{
    return host::ToUpper(shapeFile + '|' + part);
}

ScenePoses::ScenePoses(const ViewOptions &options, float distance)
    : m_options(options)
    , m_distance(distance)
    , m_atRest(distance == 0 && !options.pantographs && options.hiddenParts.empty())
{
}

void ScenePoses::Apply(TSViewObject &object)
{
    if (m_atRest) {
        object.SetPoses(1, nullptr);
        return;
    }
    // A vehicle that was turned round rolls backwards.
    const bool backwards = object.Model().WorldMatrix().At(2, 2) < 0;
    const korvat::Movement movement{backwards ? -m_distance : m_distance, object.WheelRadius(),
                                    object.DriverRadius(), m_options.pantographs};
    object.SetPoses(m_options.level, [&](const auto &model, const std::string &file) {
        return model ? poseOf(model, file, movement) : nullptr;
    });
}

korvat::PosePtr ScenePoses::poseOf(const std::shared_ptr<const korvat::Model> &model,
                                   const std::string &file, const korvat::Movement &movement)
{
    const Key key{model.get(), movement.distance, movement.wheelRadius, movement.driverRadius,
                  m_options.hiddenParts.empty() ? std::string() : file};
    const auto known = m_made.find(key);
    if (known != m_made.end())
        return known->second;
    const auto hides = [&](const korvat::Joint &joint) {
        return m_options.hiddenParts.contains(PartKey(file, joint.name));
    };
    korvat::PosePtr pose = m_options.hiddenParts.empty() ? MakePose(*model, movement)
                                                         : MakePose(*model, movement, hides);
    m_made.emplace(key, pose);
    return pose;
}

} // namespace viewer
