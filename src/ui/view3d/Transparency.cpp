// SPDX-License-Identifier: MIT
#include "ui/view3d/Transparency.h"

#include <algorithm>

namespace viewer {
namespace {

/// A pixel of opacity a is c·a on black and c·a + 255·(1 - a) on white.
QRgb pixelOf(QRgb black, QRgb white)
{
    const int through = std::max(
        {qRed(white) - qRed(black), qGreen(white) - qGreen(black), qBlue(white) - qBlue(black)});
    const int alpha = 255 - std::clamp(through, 0, 255);
    const auto colour = [alpha](int premultiplied) {
        return alpha == 0 ? 0 : std::min(255, (premultiplied * 255 + alpha / 2) / alpha);
    };
    return qRgba(colour(qRed(black)), colour(qGreen(black)), colour(qBlue(black)), alpha);
}

} // namespace

QImage WithoutBackground(QImage onBlack, const QImage &onWhite)
{
    QImage picture = std::move(onBlack);
    if (!picture.reinterpretAsFormat(QImage::Format_ARGB32))
        return {};
    for (int y = 0; y < picture.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        const auto *white = reinterpret_cast<const QRgb *>(onWhite.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            line[x] = pixelOf(line[x], white[x]);
    }
    return picture;
}

} // namespace viewer
