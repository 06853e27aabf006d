// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/SceneCanvas.h"

#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <memory>
#include <string>

class QOpenGLFramebufferObject;

namespace korvat {

class GlDevice;

/// A canvas without a window, for pictures into files. Needs a QGuiApplication.
class OffscreenCanvas : public SceneCanvas
{
public:
    /// Null where there is no OpenGL 3.3 or no room for such a picture; `reason` then says so.
    static std::unique_ptr<OffscreenCanvas> Create(int width, int height, std::string &reason);
    ~OffscreenCanvas() override;

    /// The last whole frame.
    QImage Picture();

private:
    OffscreenCanvas() = default;
    bool start(int width, int height, std::string &reason);

    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    std::unique_ptr<QOpenGLFramebufferObject> m_buffer;
    std::unique_ptr<GlDevice> m_device;
};

} // namespace korvat
