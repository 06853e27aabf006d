// SPDX-License-Identifier: MIT
#pragma once

namespace korvat {

class Renderer;

/// The ground of a scene.
enum class Ground
{
    Track, ///< rails with their top at Y = 0, on grass below
    Plain  ///< grass at Y = 0
};

/// The surface that a scene is drawn on.
class Canvas
{
public:
    virtual ~Canvas() = default;

    /// Prepares the canvas for frames.
    virtual void CanvasStart() = 0;
    /// Starts accepting frames.
    virtual void CanvasBeginRendering() = 0;
    /// Returns the renderer that models attach to and that holds the device; null before
    /// CanvasStart and where nothing can be drawn.
    virtual Renderer *Device() = 0;
    /// Restores the canvas after a resize or after the loss of its drawing surface.
    virtual void CanvasRestore() = 0;
    virtual void SetCamera(float eyeX, float eyeY, float eyeZ, float targetX, float targetY,
                           float targetZ) = 0;
    /// Returns true if a frame may be drawn; the caller must then call EndFrame.
    virtual bool BeginFrame() = 0;
    /// Completes the frame and shows it.
    virtual void EndFrame() = 0;
    /// Set the distances from the camera, in metres, at which the haze begins and becomes opaque.
    virtual void SetRangeNear(long metres) = 0;
    virtual void SetRangeFar(long metres) = 0;
    /// Sets the ground of the scene; a track at first.
    virtual void SetGround(Ground ground) = 0;
    /// Lets the window process its pending events.
    virtual void ProcessEvents() = 0;
};

} // namespace korvat
