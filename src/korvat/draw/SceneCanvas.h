// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Canvas.h"
#include "korvat/draw/Renderer.h"

namespace korvat {

/// What canvases have in common: a renderer that keeps the last frame, with ground and track under
/// it. What remains is to show it.
class SceneCanvas : public Canvas
{
public:
    void CanvasStart() override { m_started = true; }
    void CanvasBeginRendering() override { m_rendering = true; }
    Renderer *Device() override { return m_started && m_usable ? &m_renderer : nullptr; }
    void CanvasRestore() override { frameReady(); }
    void SetCamera(float eyeX, float eyeY, float eyeZ, float targetX, float targetY,
                   float targetZ) override;
    bool BeginFrame() override;
    void EndFrame() override;
    void SetRangeNear(long metres) override;
    void SetRangeFar(long metres) override;
    /// Does nothing: whoever draws here works in steps from the event loop and goes back to it.
    void ProcessEvents() override {}

protected:
    /// There is a new frame to paint.
    virtual void frameReady() {}
    /// Whether there is something to paint on; at first it is taken for granted.
    void setUsable(bool usable) { m_usable = usable; }
    Renderer &renderer() { return m_renderer; }

private:
    Renderer m_renderer;
    Vec3 m_eye;
    bool m_started = false, m_rendering = false, m_usable = true;
    float m_hazeNear = 50, m_hazeFar = 600;
};

} // namespace korvat
