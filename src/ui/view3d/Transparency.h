// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace viewer {

/// Returns a picture with a transparent background, from the same picture on black and on white.
/// Both have the format RGB32 and the same size; `onBlack` is used up.
QImage WithoutBackground(QImage onBlack, const QImage &onWhite);

} // namespace viewer
