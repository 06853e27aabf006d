// SPDX-License-Identifier: MIT
#include "viewer/AddShapes.h"

#include "host/Path.h"
#include "viewer/TSViewObject.h"

#include <algorithm>
#include <numbers>

using content::AddedShape;

namespace viewer {
namespace {

/// True if a coupler or hose is seen at its end as it is now.
bool isSeen(const AddedShape &shape, const Ends &ends)
{
    const bool coupled =
        shape.from == AddedShape::From::Front ? ends.frontCoupled : ends.rearCoupled;
    return shape.when == AddedShape::When::Always ||
           (shape.when == AddedShape::When::Coupled) == coupled;
}

/// Both ends are alike: what the rear adds is turned round with the whole end.
korvat::Transform placeOf(const AddedShape &shape, float length)
{
    constexpr float kHalfTurn = std::numbers::pi_v<float>;
    const float end = shape.from == AddedShape::From::Origin ? 0 : length / 2;
    korvat::Transform place =
        korvat::Translation({shape.offset[0], shape.offset[1], shape.offset[2] + end});
    if (shape.turned)
        place = korvat::RotationY(kHalfTurn) * place;
    return shape.from == AddedShape::From::Rear ? place * korvat::RotationY(kHalfTurn) : place;
}

} // namespace

std::vector<std::string> AddShapes(TSViewObject &object, VehicleReader &vehicles,
                                   const std::string &stockFile, const Ends &ends)
{
    const auto added = vehicles.Added(stockFile);
    const Wheels wheels = vehicles.WheelsOf(stockFile);
    object.SetWheels(wheels.radius, wheels.driven);
    object.SetFittings({vehicles.Lights(stockFile), vehicles.Boxes(stockFile), ends});
    std::vector<std::string> missing = added->problems;
    for (const AddedShape &shape : added->shapes) {
        if (!isSeen(shape, ends))
            continue;
        std::string fault = object.AddShape(shape.path, placeOf(shape, ends.length), shape.isLoad);
        if (fault.empty())
            AddMissing(object.AddedShapes().back().model.Problems(), missing);
        else
            missing.push_back(std::move(fault));
    }
    return missing;
}

float LengthOf(const TSViewObject &object)
{
    const korvat::Model *shape = object.Model().Loaded();
    return shape ? shape->box.most.z - shape->box.least.z : 0;
}

void AddMissing(const std::vector<std::string> &texts, std::vector<std::string> &list)
{
    for (const std::string &text : texts)
        if (std::find(list.begin(), list.end(), text) == list.end())
            list.push_back(text);
}

} // namespace viewer
