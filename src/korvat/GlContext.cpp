// SPDX-License-Identifier: MIT
#include "korvat/GlContext.h"

#include "korvat/GlDevice.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>

namespace korvat {

QSurfaceFormat WantedFormat()
{
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setDepthBufferSize(24);
    format.setSamples(4);
    return format;
}

std::string WhyNoOpenGl()
{
    QOpenGLContext context;
    context.setFormat(WantedFormat());
    QOffscreenSurface surface;
    surface.setFormat(WantedFormat());
    surface.create();
    if (!context.create() || !context.makeCurrent(&surface))
        return "this display offers no OpenGL";
    std::string reason;
    GlDevice::Create(reason);
    context.doneCurrent();
    return reason;
}

std::string WhyNoWindowOpenGl()
{
    // On these platforms a window with OpenGL in it ends the program.
    for (const char *platform : {"offscreen", "minimal", "vnc", "linuxfb"})
        if (QGuiApplication::platformName() == QLatin1String(platform))
            return "this display offers no OpenGL";
    return WhyNoOpenGl();
}

} // namespace korvat
