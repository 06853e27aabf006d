// SPDX-License-Identifier: MIT
#pragma once

#include "gl/OffscreenPainter.h"
#include "korvat/draw/SceneCanvas.h"

#include <QImage>

#include <memory>
#include <string>

namespace korvat {

/// A canvas without a window, for pictures into files.
class OffscreenCanvas : public SceneCanvas
{
public:
    /// Null where there is no OpenGL 3.3; `reason` then says so.
    static std::unique_ptr<OffscreenCanvas> Create(int width, int height, std::string &reason);
    ~OffscreenCanvas() override { m_painter->Release(renderer()); }

    /// The last whole frame; null when there is no room for a picture of this size.
    QImage Picture() { return m_painter->Paint(renderer(), m_width, m_height); }

private:
    OffscreenCanvas(std::unique_ptr<OffscreenPainter> painter, int width, int height)
        : m_painter(std::move(painter))
        , m_width(width)
        , m_height(height)
    {
    }

    std::unique_ptr<OffscreenPainter> m_painter;
    int m_width, m_height;
};

inline std::unique_ptr<OffscreenCanvas> OffscreenCanvas::Create(int width, int height,
                                                                std::string &reason)
{
    auto painter = OffscreenPainter::Create(reason);
    if (!painter)
        return nullptr;
    return std::unique_ptr<OffscreenCanvas>(new OffscreenCanvas(std::move(painter), width, height));
}

} // namespace korvat
