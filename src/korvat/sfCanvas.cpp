// SPDX-License-Identifier: MIT
#include "korvat/sfCanvas.h"

#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "korvat/GlContext.h"
#include "korvat/GlDevice.h"

#include <QBuffer>
#include <QMouseEvent>
#include <QOpenGLContext>

#include <array>
#include <cstdio>

namespace {

constexpr int kMaxSnapshots = 9999;
constexpr float kNotch = 120; ///< what a wheel tells for one notch

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
    static const std::string reason = korvat::WhyNoWindowOpenGl();
    return reason;
}

sfCanvas::sfCanvas(host::GameFiles &files, QWidget *parent)
    : QOpenGLWidget(parent)
    , m_files(files)
{
    setFormat(korvat::WantedFormat());
    setMinimumSize(40, 30);
    setFocusPolicy(Qt::StrongFocus);
}

sfCanvas::~sfCanvas()
{
    if (context())
        disconnect(context(), nullptr, this, nullptr);
    dropDevice();
}

/// Also called when the canvas has come into another window and so to another context.
void sfCanvas::initializeGL()
{
    renderer().Forget();
    std::string reason;
    m_device = korvat::GlDevice::Create(reason);
    setUsable(m_device != nullptr);
    if (!m_device) {
        QMetaObject::invokeMethod(
            this, [this, reason] { Q_EMIT Failed(reason); }, Qt::QueuedConnection);
        return;
    }
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &sfCanvas::dropDevice,
            Qt::UniqueConnection);
    QMetaObject::invokeMethod(this, &sfCanvas::DrawWanted, Qt::QueuedConnection);
}

void sfCanvas::dropDevice()
{
    if (!m_device)
        return;
    makeCurrent();
    renderer().ReleaseAll(*m_device);
    m_device.reset();
    doneCurrent();
}

void sfCanvas::paintGL()
{
    if (!m_device)
        return;
    const double density = devicePixelRatioF();
    renderer().Paint(*m_device, qRound(width() * density), qRound(height() * density));
}

std::string sfCanvas::SnapshotFile() const
{
    for (int number = 1; number < kMaxSnapshots; ++number) {
        std::array<char, 16> suffix{};
        std::snprintf(suffix.data(), suffix.size(), "-%04d.png", number);
        const std::string path = m_snapshotBase + suffix.data();
        if (m_overwrite || !m_files.FileExists(path))
            return path;
    }
    return m_snapshotBase + '-' + std::to_string(kMaxSnapshots) + ".png";
}

void sfCanvas::SaveSnapshot()
{
    const std::string path = SnapshotFile();
    const QImage picture = m_device ? grabFramebuffer() : QImage();
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

void sfCanvas::mouseDoubleClickEvent(QMouseEvent *)
{
    Q_EMIT ResetWanted();
}

void sfCanvas::wheelEvent(QWheelEvent *event)
{
    event->accept();
    if (const int turned = event->angleDelta().y())
        Q_EMIT WheelTurned(static_cast<float>(turned) / kNotch);
}
