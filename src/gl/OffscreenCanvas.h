// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/SceneCanvas.h"

#include <memory>
#include <string>

class QImage;

namespace korvat {

class OffscreenPainter;

/// A canvas without a window, for pictures into files.
class OffscreenCanvas : public SceneCanvas
{
public:
    /// Returns null where there is no OpenGL 3.3 and says why in `reason`.
    static std::unique_ptr<OffscreenCanvas> Create(int width, int height, std::string &reason);
    ~OffscreenCanvas() override;

    /// The last complete frame; null if there is no memory for an image of this size.
    QImage Picture();
    /// The bytes of Picture as a PNG file; empty if they cannot be made.
    std::string PngPicture();

private:
    OffscreenCanvas(std::unique_ptr<OffscreenPainter> painter, int width, int height);

    std::unique_ptr<OffscreenPainter> m_painter;
    int m_width, m_height;
};

} // namespace korvat
