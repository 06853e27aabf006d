// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <memory>
#include <string>

class QOpenGLFramebufferObject;

namespace korvat {

class GlDevice;
class Renderer;

/// Turns the frames of one renderer into images, on OpenGL 3.3 and without a window. Needs a
/// QGuiApplication, and is to be used on its thread.
class OffscreenPainter
{
public:
    /// Null where there is no OpenGL 3.3; `reason` then says so.
    static std::unique_ptr<OffscreenPainter> Create(std::string &reason);
    ~OffscreenPainter();

    /// The renderer's last whole frame; it must always be the same one. A null image when OpenGL
    /// was lost or has no room for such a picture.
    QImage Paint(Renderer &renderer, int width, int height);
    /// To be called before either of the two goes.
    void Release(Renderer &renderer);

private:
    OffscreenPainter() = default;
    bool start(std::string &reason);
    bool makeBuffer(int width, int height);

    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    std::unique_ptr<QOpenGLFramebufferObject> m_buffer;
    std::unique_ptr<GlDevice> m_device;
};

/// Why there is no OpenGL 3.3 here, as words for the user; "" when there is.
std::string WhyNoOpenGl();

} // namespace korvat
