// SPDX-License-Identifier: MIT
#pragma once

namespace korvat {

class Renderer;

/// The surface that a scene is drawn on, as the scene sees it.
class Canvas
{
public:
    virtual ~Canvas() = default;

    /// Gets the canvas ready to hold pictures.
    virtual void CanvasStart() = 0;
    /// From now on frames are taken.
    virtual void CanvasBeginRendering() = 0;
    /// Returns the renderer that models attach to and that holds the device; null before
    /// CanvasStart and where nothing can be drawn.
    virtual Renderer *Device() = 0;
    /// Brings the canvas back after a resize or a loss of what it drew on.
    virtual void CanvasRestore() = 0;
    virtual void SetCamera(float eyeX, float eyeY, float eyeZ, float targetX, float targetY,
                           float targetZ) = 0;
    /// True when a frame may be drawn; EndFrame must follow then.
    virtual bool BeginFrame() = 0;
    /// The frame is whole: the canvas shows it.
    virtual void EndFrame() = 0;
    /// Metres from the camera at which the haze begins, and at which there is nothing but haze.
    virtual void SetRangeNear(long metres) = 0;
    virtual void SetRangeFar(long metres) = 0;
    /// Lets the window see to its pending messages.
    virtual void ProcessEvents() = 0;
};

} // namespace korvat
