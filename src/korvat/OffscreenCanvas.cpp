// SPDX-License-Identifier: MIT
#include "korvat/OffscreenCanvas.h"

#include "korvat/GlContext.h"
#include "korvat/GlDevice.h"

#include <QOpenGLFramebufferObject>

namespace korvat {

std::unique_ptr<OffscreenCanvas> OffscreenCanvas::Create(int width, int height, std::string &reason)
{
    std::unique_ptr<OffscreenCanvas> canvas(new OffscreenCanvas);
    return canvas->start(width, height, reason) ? std::move(canvas) : nullptr;
}

bool OffscreenCanvas::start(int width, int height, std::string &reason)
{
    m_context.setFormat(WantedFormat());
    m_surface.setFormat(WantedFormat());
    m_surface.create();
    if (!m_context.create() || !m_context.makeCurrent(&m_surface)) {
        reason = "this system offers no OpenGL";
        return false;
    }
    m_device = GlDevice::Create(reason);
    if (!m_device)
        return false;
    QOpenGLFramebufferObjectFormat format;
    format.setSamples(WantedFormat().samples());
    format.setAttachment(QOpenGLFramebufferObject::Depth);
    m_buffer = std::make_unique<QOpenGLFramebufferObject>(width, height, format);
    if (!m_buffer->isValid())
        reason = "the graphics driver has no room for a picture of this size";
    return m_buffer->isValid();
}

OffscreenCanvas::~OffscreenCanvas()
{
    if (!m_context.isValid() || !m_context.makeCurrent(&m_surface))
        return;
    if (m_device)
        renderer().ReleaseAll(*m_device);
    m_device.reset();
    m_buffer.reset();
    m_context.doneCurrent();
}

QImage OffscreenCanvas::Picture()
{
    m_context.makeCurrent(&m_surface);
    m_buffer->bind();
    renderer().Paint(*m_device, m_buffer->width(), m_buffer->height());
    return m_buffer->toImage().convertToFormat(QImage::Format_RGB888);
}

} // namespace korvat
