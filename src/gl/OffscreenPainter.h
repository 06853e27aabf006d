// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/ShadowBudget.h"

#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <memory>
#include <string>

class QOpenGLFramebufferObject;
class QThread;

namespace korvat {

class GlDevice;
class Renderer;

/// When a painter draws shadows. The environment variable ZELK_SHADOWS, if it is "on" or "off",
/// decides instead.
enum class ShadowUse
{
    Always,
    IfFast ///< not if OpenGL runs on the processor and needs too long for a frame
};

/// Turns the frames of one renderer into images, with OpenGL 3.3 and without a window. Requires a
/// QGuiApplication. Create and destroy it on the application's thread; it is also used there unless
/// it was moved to another one.
class OffscreenPainter
{
public:
    /// Returns null, with the reason in `reason`, if there is no OpenGL 3.3.
    static std::unique_ptr<OffscreenPainter> Create(ShadowUse shadows, std::string &reason);
    ~OffscreenPainter();

    /// Returns the last complete frame of the renderer, which must be the same one in every call.
    /// Returns a null image if OpenGL was lost or has no room for an image of this size.
    QImage Paint(Renderer &renderer, int width, int height);
    /// Like Paint, for an image of any size: draws it in parts that every OpenGL has room for.
    QImage PaintLarge(Renderer &renderer, int width, int height);
    /// Moves the painter from the current thread to another one. It must be back on the
    /// application's thread when it is destroyed.
    void MoveTo(QThread &thread);
    /// Releases what the device holds for the renderer. Call this before either is destroyed.
    void Release(Renderer &renderer);

private:
    OffscreenPainter() = default;
    bool start(ShadowUse shadows, std::string &reason);
    bool makeBuffer(int width, int height);
    bool wantsShadows(int width, int height);

    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    std::unique_ptr<QOpenGLFramebufferObject> m_buffer;
    std::unique_ptr<GlDevice> m_device;
    bool m_isMeasured = false; ///< m_budget decides about the shadows
    ShadowBudget m_budget;
};

/// True if painters can be moved to other threads here.
bool CanPaintOnThreads();

/// Returns the reason why there is no OpenGL 3.3, in words for the user; "" if there is.
std::string WhyNoOpenGl();

} // namespace korvat
