// SPDX-License-Identifier: MIT
#include "gl/OffscreenCanvas.h"

#include "gl/OffscreenPainter.h"

#include <QBuffer>
#include <QImage>

#include <utility>

namespace korvat {

OffscreenCanvas::OffscreenCanvas(std::unique_ptr<OffscreenPainter> painter, int width, int height)
    : m_painter(std::move(painter))
    , m_width(width)
    , m_height(height)
{
}

OffscreenCanvas::~OffscreenCanvas()
{
    m_painter->Release(renderer());
}

std::unique_ptr<OffscreenCanvas> OffscreenCanvas::Create(int width, int height, std::string &reason)
{
    auto painter = OffscreenPainter::Create(ShadowUse::Always, reason);
    if (!painter)
        return nullptr;
    return std::unique_ptr<OffscreenCanvas>(new OffscreenCanvas(std::move(painter), width, height));
}

void OffscreenCanvas::Resize(int width, int height)
{
    m_width = width;
    m_height = height;
}

void OffscreenCanvas::MoveTo(QThread &thread)
{
    m_painter->MoveTo(thread);
}

QImage OffscreenCanvas::Picture()
{
    return m_painter->Paint(renderer(), m_width, m_height);
}

std::string OffscreenCanvas::PngPicture()
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!Picture().convertToFormat(QImage::Format_RGB888).save(&buffer, "PNG"))
        return {};
    return bytes.toStdString();
}

} // namespace korvat
