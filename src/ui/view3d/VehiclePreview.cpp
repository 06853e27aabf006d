// SPDX-License-Identifier: MIT
#include "ui/view3d/VehiclePreview.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QTextDocument>
#include <QTextOption>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace viewer {
namespace {

constexpr int kPauseMilliseconds = 150;
constexpr float kPixelsPerRadian = 120, kKeyStep = 0.15f;
constexpr float kLowest = -0.3f, kHighest = 1.4f; ///< radians
constexpr float kFarthest = 0.5f, kNearest = 8, kZoomStep = 1.15f;
constexpr float kNotch = 120; ///< wheel angle of one notch

} // namespace

TurningPicture::TurningPicture(QWidget *parent)
    : QWidget(parent)
{
    setObjectName("picPreview");
    setAccessibleName(QStringLiteral("Preview"));
    setToolTip(QStringLiteral("Drag to turn the vehicle; the wheel goes nearer and away; a double "
                              "click restores the first view"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void TurningPicture::SetPicture(const QImage &picture)
{
    m_picture = picture;
    m_text.clear();
    setCursor(picture.isNull() ? Qt::ArrowCursor : Qt::OpenHandCursor);
    update();
}

void TurningPicture::SetText(const QString &text)
{
    SetPicture({});
    m_text = text;
}

void TurningPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_picture.isNull()) {
        constexpr int air = 10;
        painter.fillRect(rect(), palette().color(QPalette::Base));
        painter.setPen(palette().color(QPalette::Text));
        QTextOption option(Qt::AlignCenter);
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        painter.drawText(rect().adjusted(air, air, -air, -air), m_text, option);
    } else {
        paintPicture(painter);
    }
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

/// A picture of another size, such as a thumbnail, is scaled; its own background fills the rest.
void TurningPicture::paintPicture(QPainter &painter) const
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), m_picture.pixelColor(0, 0));
    const QSizeF size = QSizeF(m_picture.size()).scaled(QSizeF(this->size()), Qt::KeepAspectRatio);
    painter.drawImage(
        QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size),
        m_picture);
}

void TurningPicture::turn(const VehicleView &view)
{
    m_view = view;
    m_view.tilt = std::clamp(m_view.tilt, kLowest, kHighest);
    m_view.zoom = std::clamp(m_view.zoom, kFarthest, kNearest);
    Q_EMIT Turned();
}

void TurningPicture::mousePressEvent(QMouseEvent *event)
{
    m_last = event->position();
}

void TurningPicture::mouseMoveEvent(QMouseEvent *event)
{
    if (!event->buttons())
        return;
    const QPointF by = (event->position() - m_last) / static_cast<qreal>(kPixelsPerRadian);
    m_last = event->position();
    turn({m_view.turn - static_cast<float>(by.x()), m_view.tilt + static_cast<float>(by.y()),
          m_view.zoom});
}

void TurningPicture::mouseDoubleClickEvent(QMouseEvent *)
{
    turn({});
}

void TurningPicture::wheelEvent(QWheelEvent *event)
{
    event->accept();
    const float notches = static_cast<float>(event->angleDelta().y()) / kNotch;
    turn({m_view.turn, m_view.tilt, m_view.zoom * std::pow(kZoomStep, notches)});
}

void TurningPicture::keyPressEvent(QKeyEvent *event)
{
    VehicleView view = m_view;
    switch (event->key()) {
    case Qt::Key_Left:
        view.turn += kKeyStep;
        break;
    case Qt::Key_Right:
        view.turn -= kKeyStep;
        break;
    case Qt::Key_Up:
        view.tilt += kKeyStep;
        break;
    case Qt::Key_Down:
        view.tilt -= kKeyStep;
        break;
    case Qt::Key_Plus:
        view.zoom *= kZoomStep;
        break;
    case Qt::Key_Minus:
        view.zoom /= kZoomStep;
        break;
    case Qt::Key_Home:
        view = {};
        break;
    default:
        return QWidget::keyPressEvent(event);
    }
    turn(view);
}

VehiclePreview::VehiclePreview(VehiclePictures &pictures, QWidget *parent)
    : QWidget(parent)
    , picPreview(new TurningPicture(this))
    , lblPreview(new QLabel(this))
    , m_pictures(pictures)
{
    setObjectName("VehiclePreview");
    lblPreview->setObjectName("lblPreview");
    lblPreview->setTextFormat(Qt::PlainText);
    lblPreview->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(picPreview, 1);
    layout->addWidget(lblPreview);
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &VehiclePreview::load);
    connect(picPreview, &TurningPicture::Turned, this, [this] { draw(false); });
    connect(&m_pictures, &VehiclePictures::KeptFound, this,
            [this](const std::string &file, const QImage &picture) {
                if (file == m_stockFile && !m_isLive && picPreview->Text().isEmpty())
                    picPreview->SetPicture(picture);
            });
    connect(&m_pictures, &VehiclePictures::ViewReady, this,
            [this](const QObject *asker, const std::string &file, const QImage &picture,
                   const std::string &problem) {
                if (asker != this || file != m_stockFile)
                    return;
                m_isLive = problem.empty();
                if (m_isLive)
                    picPreview->SetPicture(picture);
                else
                    describe(QStringLiteral("This vehicle cannot be shown:\n") +
                             QString::fromStdString(problem));
            });
}

VehiclePreview::~VehiclePreview()
{
    m_pictures.Leave(*this);
}

void VehiclePreview::ShowVehicle(const std::string &stockFile, const QString &name)
{
    lblPreview->setText(name);
    lblPreview->setToolTip(Qt::convertFromPlainText(name, Qt::WhiteSpaceNormal));
    picPreview->setAccessibleDescription(name);
    if (stockFile == m_stockFile)
        return;
    m_stockFile = stockFile;
    picPreview->ResetView();
    ReadAgain();
}

void VehiclePreview::ReadAgain()
{
    m_isLive = false;
    m_pictures.Leave(*this);
    if (m_stockFile.empty() || !isVisible()) // when it is shown, it reads
        return;
    picPreview->SetPicture({});
    if (!VehiclePictures::WhyNot().empty()) {
        describe(QStringLiteral("There is no 3D view here: ") +
                 QString::fromStdString(VehiclePictures::WhyNot()) + QLatin1Char('.'));
        return;
    }
    m_pictures.WantKept(m_stockFile);
    m_pause.start(kPauseMilliseconds);
}

void VehiclePreview::ShowNothing(const QString &text)
{
    m_stockFile.clear();
    m_isLive = false;
    m_pause.stop();
    m_pictures.Leave(*this);
    lblPreview->clear();
    lblPreview->setToolTip({});
    describe(text);
}

void VehiclePreview::describe(const QString &text)
{
    picPreview->SetText(text);
    picPreview->setAccessibleDescription(lblPreview->text() + QLatin1Char('\n') + text);
}

void VehiclePreview::load()
{
    draw(true);
}

void VehiclePreview::draw(bool fresh)
{
    const QSize size = (QSizeF(picPreview->size()) * picPreview->devicePixelRatioF()).toSize();
    if (m_stockFile.empty() || size.isEmpty() || !isVisible())
        return;
    m_pictures.WantView(*this, {m_stockFile, picPreview->View(), size, fresh});
}

void VehiclePreview::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_isLive)
        draw(false);
}

/// Files may have changed while the preview was hidden.
void VehiclePreview::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    ReadAgain();
}

void VehiclePreview::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_pause.stop();
    m_pictures.Leave(*this);
}

} // namespace viewer
