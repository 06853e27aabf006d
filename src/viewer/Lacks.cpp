// SPDX-License-Identifier: MIT
#include "viewer/Lacks.h"

#include "host/Text.h"
#include "viewer/AddShapes.h"
#include "viewer/TSView.h"

#include <set>
#include <utility>

namespace viewer {

std::vector<MissingTexture> MissingTexturesOf(const ViewObjects &objects)
{
    std::vector<MissingTexture> missing;
    std::set<std::pair<std::string, std::string>> seen;
    const auto add = [&](const ShapeModel &model, const std::string &shape) {
        for (const std::string &texture : model.MissingTextures())
            if (seen.emplace(host::ToUpper(texture), host::ToUpper(shape)).second)
                missing.push_back({texture, shape});
    };
    for (int place = 1; place <= objects.Count(); ++place) {
        const TSViewObject &object = objects.Item(place);
        add(object.Model(), object.ShapeFile());
        for (const TSViewObject::Added &added : object.AddedShapes())
            add(added.model, added.file);
    }
    return missing;
}

std::vector<std::string> LightProblemsOf(const ViewObjects &objects)
{
    std::vector<std::string> problems;
    std::set<const content::VehicleLights *> seen;
    for (int place = 1; place <= objects.Count(); ++place)
        if (const auto &lights = objects.Item(place).Fittings().lights;
            lights && seen.insert(lights.get()).second)
            AddMissing(lights->problems, problems);
    return problems;
}

} // namespace viewer
