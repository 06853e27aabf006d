// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Canvas.h"
#include "korvat/draw/Renderer.h"

namespace korvat {

/// The common part of all canvases: a renderer that keeps the last frame, and sky, ground and track
/// in every scene unless it is a studio. Subclasses show the frame.
class SceneCanvas : public Canvas
{
public:
    void CanvasStart() override { m_started = true; }
    void CanvasBeginRendering() override { m_rendering = true; }
    /// Shows models on a plain background, through a lens with this vertical field of view, without
    /// ground and track.
    void BecomeStudio(const Tint &background, float verticalDegrees);
    Renderer *Device() override { return m_started && m_usable ? &m_renderer : nullptr; }
    void CanvasRestore() override { frameReady(); }
    void SetCamera(float eyeX, float eyeY, float eyeZ, float targetX, float targetY,
                   float targetZ) override;
    bool BeginFrame() override;
    void EndFrame() override;
    void SetRangeNear(long metres) override;
    void SetRangeFar(long metres) override;
    void SetGround(Ground ground) override { m_ground = ground; }
    /// Does nothing: scenes on these canvases are drawn from the event loop, which runs between
    /// steps.
    void ProcessEvents() override {}
    /// Sets whether the coming frames have ground and track; true at first.
    void SetScenery(bool scenery) { m_scenery = scenery; }

protected:
    /// Called when there is a new frame to paint.
    virtual void frameReady() {}
    /// Sets whether there is a surface to paint on; true at first.
    void setUsable(bool usable) { m_usable = usable; }
    Renderer &renderer() { return m_renderer; }

private:
    Renderer m_renderer;
    Vec3 m_eye;
    Ground m_ground = Ground::Track;
    bool m_started = false, m_rendering = false, m_usable = true, m_scenery = true,
         m_isStudio = false;
    float m_hazeNear = 50, m_hazeFar = 600;
};

} // namespace korvat
