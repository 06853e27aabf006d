// SPDX-License-Identifier: MIT
#include "ui/view3d/sfCanvas.h"

#include "gl/OffscreenPainter.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"

#include <QBuffer>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

constexpr float kNotch = 120; ///< wheel angle of one notch

int numberOf(Qt::MouseButtons buttons)
{
    return (buttons & Qt::LeftButton ? 1 : 0) + (buttons & Qt::RightButton ? 2 : 0) +
           (buttons & Qt::MiddleButton ? 4 : 0);
}

float xOf(const QMouseEvent &event)
{
    return static_cast<float>(event.position().x());
}

float yOf(const QMouseEvent &event)
{
    return static_cast<float>(event.position().y());
}

} // namespace

const std::string &sfCanvas::WhyNot()
{
    static const std::string reason = korvat::WhyNoOpenGl();
    return reason;
}

sfCanvas::sfCanvas(host::GameFiles &files, QWidget *parent)
    : QWidget(parent)
    , m_files(files)
{
    setMinimumSize(40, 30);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

sfCanvas::~sfCanvas()
{
    if (m_painter)
        m_painter->Release(renderer());
}

void sfCanvas::CanvasStart()
{
    if (!m_painter)
        makePainter();
    SceneCanvas::CanvasStart();
}

void sfCanvas::makePainter()
{
    std::string reason;
    renderer().Forget();
    m_painter = korvat::OffscreenPainter::Create(korvat::ShadowUse::IfFast, reason);
    if (!m_painter)
        giveUp(reason);
}

void sfCanvas::giveUp(const std::string &reason)
{
    if (m_painter)
        m_painter->Release(renderer());
    m_painter.reset();
    setUsable(false);
    QMetaObject::invokeMethod(
        this, [this, reason] { Q_EMIT Failed(reason); }, Qt::QueuedConnection);
}

void sfCanvas::frameReady()
{
    m_stale = true;
    update();
}

QImage sfCanvas::paintFrame()
{
    const double density = devicePixelRatioF();
    const QSize size(qRound(width() * density), qRound(height() * density));
    if (!m_stale && m_picture.size() == size)
        return m_picture;
    QImage picture = m_painter->Paint(renderer(), size.width(), size.height());
    if (picture.isNull()) {
        // The OpenGL context was lost with everything in it.
        makePainter();
        if (m_painter)
            picture = m_painter->Paint(renderer(), size.width(), size.height());
        if (m_painter && picture.isNull())
            giveUp("the graphics driver has no room for the picture");
        QMetaObject::invokeMethod(this, &sfCanvas::DrawWanted, Qt::QueuedConnection);
    }
    picture.setDevicePixelRatio(density);
    return picture;
}

QImage sfCanvas::Picture()
{
    if (m_painter)
        m_picture = paintFrame();
    m_stale = false;
    return m_picture;
}

QImage sfCanvas::Draw(const QSize &size, const std::optional<korvat::Tint> &backdrop)
{
    if (!m_painter)
        return {};
    renderer().SetBackdrop(backdrop);
    renderer().SetShape(static_cast<float>(width()) / static_cast<float>(std::max(height(), 1)));
    const QImage image = m_painter->PaintLarge(renderer(), size.width(), size.height());
    renderer().SetBackdrop({});
    renderer().SetShape(0);
    return image;
}

void sfCanvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (const QImage picture = Picture(); !picture.isNull())
        painter.drawImage(0, 0, picture);
    else
        painter.fillRect(rect(), palette().mid());
}

std::string sfCanvas::SnapshotFile() const
{
    for (int number = 1;; ++number) {
        std::array<char, 24> suffix{};
        std::snprintf(suffix.data(), suffix.size(), "-%04d.png", number);
        std::string path = m_snapshotBase + suffix.data();
        if (m_overwrite || !m_files.FileExists(path))
            return path;
    }
}

void sfCanvas::SaveSnapshot()
{
    const std::string path = SnapshotFile();
    const QImage picture = Picture();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (picture.isNull() || !picture.convertToFormat(QImage::Format_RGB888).save(&buffer, "PNG"))
        throw host::RuntimeError(host::ErrorNumber::InvalidCall,
                                 path + ": there is no picture to save");
    m_files.WriteFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

void sfCanvas::mousePressEvent(QMouseEvent *event)
{
    Q_EMIT MouseDown(numberOf(event->button()), xOf(*event), yOf(*event));
}

void sfCanvas::mouseReleaseEvent(QMouseEvent *)
{
    Q_EMIT MouseUp();
}

void sfCanvas::mouseMoveEvent(QMouseEvent *event)
{
    Q_EMIT MouseMove(numberOf(event->buttons()), xOf(*event), yOf(*event));
}

void sfCanvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton)
        mousePressEvent(event); // two short drags are not a double click
    else
        Q_EMIT DoubleClicked(xOf(*event), yOf(*event));
}

void sfCanvas::wheelEvent(QWheelEvent *event)
{
    event->accept();
    if (const int turned = event->angleDelta().y())
        Q_EMIT WheelTurned(static_cast<float>(turned) / kNotch,
                           static_cast<float>(event->position().x()),
                           static_cast<float>(event->position().y()));
}
