// SPDX-License-Identifier: MIT
#include "viewer/SceneParts.h"

#include "host/Path.h"
#include "viewer/TSView.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>

namespace viewer {
namespace {

/// Calls `use` with each shape of the scene once.
void forEachShape(const ViewObjects &objects,
                  const std::function<void(const std::string &file, const korvat::Model &)> &use)
{
    std::set<std::string> known;
    const auto visit = [&](const std::string &file, const ShapeModel &model) {
        if (model.Loaded() && known.insert(file).second)
            use(file, *model.Loaded());
    };
    for (int place = 1; place <= objects.Count(); ++place) {
        const TSViewObject &object = objects.Item(place);
        visit(object.ShapeFile(), object.Model());
        for (const TSViewObject::Added &added : object.AddedShapes())
            visit(added.file, added.model);
    }
}

} // namespace

std::vector<ShapeParts> PartsOf(const ViewObjects &objects)
{
    std::vector<ShapeParts> shapes;
    forEachShape(objects, [&](const std::string &file, const korvat::Model &model) {
        ShapeParts shape{file, {}};
        for (std::size_t i = 0; i < std::min(model.joints.size(), kMostParts); ++i) {
            const korvat::Joint &joint = model.joints[i];
            const bool listed = joint.parent < static_cast<int>(kMostParts);
            shape.parts.push_back({joint.name, listed ? joint.parent : -1, joint.drawn});
        }
        shapes.push_back(std::move(shape));
    });
    return shapes;
}

std::vector<LevelDistances> LevelsOf(const ViewObjects &objects)
{
    std::vector<LevelDistances> levels;
    for (int place = 1; place <= objects.Count(); ++place) {
        const korvat::Model *model = objects.Item(place).Model().Loaded();
        for (std::size_t i = 0; model && i < model->levels.size(); ++i) {
            const float distance = std::isnan(model->levels[i]) ? 0 : model->levels[i];
            if (i == levels.size())
                levels.push_back({distance, distance});
            levels[i].least = std::min(levels[i].least, distance);
            levels[i].most = std::max(levels[i].most, distance);
        }
    }
    return levels;
}

std::vector<std::string> FaultsOf(const ViewObjects &objects)
{
    std::vector<std::string> faults;
    forEachShape(objects, [&](const std::string &file, const korvat::Model &model) {
        for (const std::string &fault : model.faults)
            faults.push_back(std::string(host::path::FileName(file)) + ": " + fault);
    });
    return faults;
}

} // namespace viewer
