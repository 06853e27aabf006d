// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"

namespace korvat {

/// A shape as it is drawn: the nearest level of detail of each of its parts, in the rest pose, all
/// matrices worked in. The texture slots are the shape's images. Triangles that refer to something
/// that is not there, or that lie nowhere, are left out. docs/formats.md, "Drawing a shape".
Model MakeModel(const Shape &shape);

} // namespace korvat
