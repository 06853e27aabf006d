// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Device.h"

#include <QOpenGLFunctions_3_3_Core>
#include <QOpenGLShaderProgram>

#include <string>

namespace korvat {

/// The shadow maps of a GlDevice: the layers of one depth texture, and the program that draws them.
/// The context that it was started in must be current in every call, including the destructor.
class GlShadows : private QOpenGLFunctions_3_3_Core
{
public:
    ~GlShadows();

    /// Returns false, with the reason in `reason`, if the driver refuses the program.
    bool Start(std::string &reason);
    /// Begins a map. The first one of a frame keeps the surface that the frame is painted on.
    void Begin(const ShadowMap &map, std::size_t number);
    /// Sets the state for a call whose mesh, texture and sampler are bound. Returns false if there
    /// is no room for the maps.
    bool Use(const ShadowCall &call);
    /// Returns the location of the list of places.
    int World() const { return m_world; }
    /// Returns to the frame's surface; does nothing if no map was begun.
    void End();
    /// Passes the maps to the program of the frame, which is bound. Frees them in a frame without
    /// shadows.
    void PassTo(QOpenGLShaderProgram &program, const FrameSetup &setup);

private:
    bool makeMaps();
    void freeMaps();

    QOpenGLShaderProgram m_program;
    int m_world = 0, m_alphaLimit = 0;
    GLuint m_texture = 0, m_framebuffer = 0;
    GLint m_surface = 0; ///< the framebuffer of the frame
    bool m_drawing = false, m_usable = true;
};

} // namespace korvat
