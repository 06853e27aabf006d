// SPDX-License-Identifier: MIT
#include "gl/OffscreenPainter.h"

#include "gl/GlDevice.h"
#include "host/Folders.h"
#include "korvat/draw/Renderer.h"

#include <QElapsedTimer>
#include <QOpenGLFramebufferObject>
#include <QPainter>

#include <algorithm>

namespace korvat {
namespace {

constexpr int kSamples = 4;
constexpr int kLargestTile = 2048; ///< pixels

QSurfaceFormat wantedFormat()
{
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    return format;
}

} // namespace

std::unique_ptr<OffscreenPainter> OffscreenPainter::Create(ShadowUse shadows, std::string &reason)
{
    std::unique_ptr<OffscreenPainter> painter(new OffscreenPainter);
    return painter->start(shadows, reason) ? std::move(painter) : nullptr;
}

bool OffscreenPainter::start(ShadowUse shadows, std::string &reason)
{
    m_context.setFormat(wantedFormat());
    m_surface.setFormat(wantedFormat());
    m_surface.create();
    if (!m_context.create() || !m_context.makeCurrent(&m_surface)) {
        reason = "this system offers no OpenGL";
        return false;
    }
    m_device = GlDevice::Create(reason);
    m_isMeasured = shadows == ShadowUse::IfFast && m_device && m_device->IsSoftware();
    return m_device != nullptr;
}

OffscreenPainter::~OffscreenPainter()
{
    if (!m_context.isValid() || !m_context.makeCurrent(&m_surface))
        return;
    m_device.reset();
    m_buffer.reset();
    m_context.doneCurrent();
}

bool OffscreenPainter::makeBuffer(int width, int height)
{
    if (m_buffer && m_buffer->size() == QSize(width, height))
        return true;
    QOpenGLFramebufferObjectFormat format;
    format.setSamples(kSamples);
    format.setAttachment(QOpenGLFramebufferObject::Depth);
    m_buffer = std::make_unique<QOpenGLFramebufferObject>(width, height, format);
    return m_buffer->isValid();
}

QImage OffscreenPainter::Paint(Renderer &renderer, int width, int height)
{
    if (!m_context.makeCurrent(&m_surface) || !makeBuffer(width, height) || !m_buffer->bind())
        return {};
    const bool shadows = wantsShadows(width, height);
    renderer.SetShadows(shadows);
    QElapsedTimer timer;
    timer.start();
    renderer.Paint(*m_device, width, height);
    QImage picture = m_buffer->toImage();
    if (m_isMeasured && shadows)
        m_budget.Took(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    return picture;
}

bool OffscreenPainter::wantsShadows(int width, int height)
{
    const std::string wish = host::Environment("ZELK_SHADOWS");
    if (wish == "on" || wish == "off")
        return wish == "on";
    return !m_isMeasured || m_budget.Affords(width, height);
}

void OffscreenPainter::MoveTo(QThread &thread)
{
    m_context.doneCurrent();
    m_context.moveToThread(&thread);
}

QImage OffscreenPainter::PaintLarge(Renderer &renderer, int width, int height)
{
    const int side = kLargestTile;
    QImage whole(width, height, QImage::Format_RGB32);
    if (whole.isNull() || !m_context.makeCurrent(&m_surface) ||
        !makeBuffer(std::min(width, side), std::min(height, side)))
        return {};
    for (int top = 0; top < height; top += side)
        for (int left = 0; left < width; left += side) {
            const Tile tile{left, top, std::min(side, width - left), std::min(side, height - top)};
            if (!m_buffer->bind())
                return {};
            renderer.PaintTile(*m_device, width, height, tile);
            const QImage part = m_buffer->toImage(); // with its lower left corner filled
            if (part.isNull())
                return {};
            QPainter(&whole).drawImage(left, top, part, 0, part.height() - tile.height, tile.width,
                                       tile.height);
        }
    return whole;
}

void OffscreenPainter::Release(Renderer &renderer)
{
    if (m_context.makeCurrent(&m_surface))
        renderer.ReleaseAll(*m_device);
    else
        renderer.Forget();
}

bool CanPaintOnThreads()
{
    return QOpenGLContext::supportsThreadedOpenGL();
}

std::string WhyNoOpenGl()
{
    std::string reason;
    OffscreenPainter::Create(ShadowUse::Always, reason);
    return reason;
}

} // namespace korvat
