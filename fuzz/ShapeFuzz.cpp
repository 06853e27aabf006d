// SPDX-License-Identifier: MIT
// Shapes: for any bytes, reading ends, and the resulting shape can be placed and measured.
#include "korvat/formats/ReadShape.h"
#include "korvat/model/Geometry.h"

#include <cstdlib>

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
    return 0;
}
