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

/// Turns the frames of one renderer into images, with OpenGL 3.3 and without a window. Requires a
/// QGuiApplication and must be used on its thread.
class OffscreenPainter
{
public:
    /// Returns null, with the reason in `reason`, if there is no OpenGL 3.3.
    static std::unique_ptr<OffscreenPainter> Create(std::string &reason);
    ~OffscreenPainter();

    /// Returns the last complete frame of the renderer, which must be the same one in every call.
    /// Returns a null image if OpenGL was lost or has no room for an image of this size.
    QImage Paint(Renderer &renderer, int width, int height);
    /// Like Paint, for an image of any size: draws it in parts that every OpenGL has room for.
    QImage PaintLarge(Renderer &renderer, int width, int height);
    /// Releases what the device holds for the renderer. Call this before either is destroyed.
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

/// Returns the reason why there is no OpenGL 3.3, in words for the user; "" if there is.
std::string WhyNoOpenGl();

} // namespace korvat
