// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/SceneCanvas.h"

#include <memory>
#include <string>

class QImage;
class QThread;

namespace korvat {

class OffscreenPainter;

/// A canvas without a window, for images in files.
class OffscreenCanvas : public SceneCanvas
{
public:
    /// Returns null, with the reason in `reason`, if there is no OpenGL 3.3.
    static std::unique_ptr<OffscreenCanvas> Create(int width, int height, std::string &reason);
    ~OffscreenCanvas() override;

    /// Sets the size of the next images, in pixels.
    void Resize(int width, int height);
    /// As OffscreenPainter::MoveTo.
    void MoveTo(QThread &thread);

    /// Returns the last complete frame; null if there is no memory for an image of this size.
    QImage Picture();
    /// Returns the last complete frame as the bytes of a PNG file; empty if that fails.
    std::string PngPicture();

private:
    OffscreenCanvas(std::unique_ptr<OffscreenPainter> painter, int width, int height);

    std::unique_ptr<OffscreenPainter> m_painter;
    int m_width, m_height;
};

} // namespace korvat
