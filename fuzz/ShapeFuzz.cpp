// SPDX-License-Identifier: MIT
// Shapes: for any bytes, reading ends, and the resulting shape can be placed, measured and moved.
#include "korvat/formats/ReadShape.h"
#include "korvat/model/Geometry.h"
#include "korvat/model/MakeModel.h"
#include "korvat/model/Pose.h"

#include <cmath>
#include <cstdlib>

namespace {

void move(const korvat::Shape &shape, int level)
{
    const korvat::Model model = korvat::MakeModel(shape, level);
    for (const float distance : {0.0F, 1.0F, -1e6F}) {
        const auto pose = MakePose(model, {distance, 0, 0.5F, true});
        if (!pose)
            continue;
        for (const korvat::Transform &moved : pose->moved)
            for (const float number : moved.m)
                if (!std::isfinite(number))
                    std::abort();
        for (const korvat::Part &part : model.parts)
            pose->PlaceOf(part, korvat::Identity());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const korvat::ShapeFile file = korvat::ReadShape({reinterpret_cast<const char *>(data), size});
    for (const korvat::LodControl &control : file.shape.lodControls)
        for (const korvat::Level &level : control.levels) {
            const korvat::Geometry geometry = MakeGeometry(file.shape, level);
            const auto pose = RestPose(file.shape, level);
            for (const korvat::DrawPart &part : geometry.parts)
                for (const std::uint32_t index : part.indices)
                    if (index >= geometry.vertices.size() || part.matrix >= pose.size())
                        std::abort();
            BoundsOf(geometry, pose);
        }
    RestBounds(file.shape);
    for (const int level : {1, 2})
        move(file.shape, level);
    return 0;
}
