// SPDX-License-Identifier: MIT
#include "ui/view3d/CameraControls.h"

#include "host/RuntimeError.h"
#include "ui/view3d/sfCanvas.h"
#include "viewer/Stage.h"

#include <algorithm>
#include <utility>

namespace viewer {
namespace {

constexpr int kLeft = 1, kRight = 2, kMiddle = 4;
constexpr int kFrameMilliseconds = 15;
/// Multiple of the target's distance up to which ground counts as what is under the mouse.
constexpr float kNearGround = 4;

QString plain(float number)
{
    return QString::number(static_cast<double>(number));
}

} // namespace

CameraControls::CameraControls(Stage &stage, const QWidget &picture)
    : m_stage(stage)
    , m_picture(picture)
{
    tmrCamera.setObjectName("tmrCamera");
    tmrCamera.setTimerType(Qt::PreciseTimer);
    connect(&tmrCamera, &QTimer::timeout, this, &CameraControls::step);
}

void CameraControls::Connect(sfCanvas &canvas)
{
    connect(&canvas, &sfCanvas::MouseDown, this, &CameraControls::press);
    connect(&canvas, &sfCanvas::MouseUp, this, [this] { m_dragging = false; });
    connect(&canvas, &sfCanvas::MouseMove, this, &CameraControls::drag);
    connect(&canvas, &sfCanvas::WheelTurned, this, &CameraControls::wheel);
    connect(&canvas, &sfCanvas::DoubleClicked, this, &CameraControls::doubleClick);
}

Sight CameraControls::sight() const
{
    return {*m_stage.View(), static_cast<float>(m_picture.width()),
            static_cast<float>(m_picture.height())};
}

/// Returns the depth of what is at a place of the picture: a vehicle, near ground, else as far as
/// the target.
float CameraControls::depthAt(float x, float y) const
{
    const TSView &view = *m_stage.View();
    const Sight seen = sight();
    const Ray ray{seen.Eye(), seen.Through(x, y)};
    if (const auto hit = Pick(view.Models, ray, view.ShowsLoads()))
        return hit->distance;
    const float target = seen.DepthOf({view.LookAtX, view.LookAtY, view.LookAtZ});
    const auto ground = PickGround(ray, m_stage.Ground());
    return ground && *ground < target * kNearGround ? *ground : target;
}

/// Returns how far the wheel can move the camera from its target: at least to where it sees the
/// whole train.
float CameraControls::farthest() const
{
    CameraPose pose = *m_stage.View();
    OrbitCamera camera(pose);
    const auto corners = CornersOf(m_stage.View()->Models, m_stage.View()->ShowsLoads());
    camera.ShowAll(corners, MiddleOf(corners), static_cast<float>(m_picture.width()),
                   static_cast<float>(m_picture.height()));
    return std::max(camera.Distance(), OrbitCamera::kFarthest);
}

void CameraControls::press(int button, float x, float y)
{
    Finish();
    m_dragging = true;
    m_lastX = x;
    m_lastY = y;
    TSView *view = m_stage.View();
    if (!view)
        return;
    m_tiltsOver = OrbitCamera(*view).IsBesideTarget();
    if (button == kMiddle)
        m_panDepth = depthAt(x, y);
}

void CameraControls::drag(int buttons, float x, float y)
{
    if (!m_dragging)
        return;
    const float dx = x - m_lastX, dy = y - m_lastY;
    Q_EMIT StatusChanged(QStringLiteral("Move(%1,%2)").arg(plain(dx), plain(dy)));
    if (buttons == kLeft)
        move(false, [&](OrbitCamera &camera) {
            m_tiltsOver ? camera.OrbitOver(dx, dy) : camera.Orbit(dx, dy);
        });
    else if (buttons == kRight)
        move(false, [&](OrbitCamera &camera) { camera.Pan(dx, dy); });
    else if (buttons == kMiddle)
        move(true,
             [&](OrbitCamera &camera) { camera.Slide(sight().Across(dx, dy, m_panDepth) * -1); });
    m_lastX = x;
    m_lastY = y;
}

void CameraControls::wheel(float notches, float x, float y)
{
    Finish();
    move(true, [&](OrbitCamera &camera) {
        camera.ApproachPoint(sight().PointAt(x, y, depthAt(x, y)), notches, farthest());
    });
}

void CameraControls::doubleClick(float x, float y)
{
    Finish();
    TSView *view = m_stage.View();
    if (!view)
        return;
    const Sight seen = sight();
    const auto hit = Pick(view->Models, {seen.Eye(), seen.Through(x, y)}, view->ShowsLoads());
    if (!hit) {
        Reset();
        return;
    }
    fly([&](OrbitCamera &camera) {
        camera.MoveTarget(MiddleOf(CornersOfObject(view->Models, hit->place)));
    });
    const QString name = QString::fromStdString(m_stage.NameOf(hit->place));
    Q_EMIT StatusChanged(name);
    Q_EMIT VehicleChosen(name);
}

void CameraControls::Reset()
{
    Finish();
    move(true, [this](OrbitCamera &camera) { camera.Reset(m_stage.TrainMiddle()); });
}

void CameraControls::MoveAlong(float z)
{
    Finish();
    move(false, [z](OrbitCamera &camera) { camera.MoveAlong(z); });
}

void CameraControls::SetHeight(float height)
{
    Finish();
    move(false, [height](OrbitCamera &camera) { camera.SetHeight(height); });
}

void CameraControls::RunAgain()
{
    if (const auto command = std::exchange(m_whileLoading, std::nullopt))
        Run(*command);
}

void CameraControls::Run(CameraCommand command)
{
    const bool shows = command != CameraCommand::FromOtherSide;
    m_whileLoading = m_stage.Loading() && shows ? std::optional(command) : std::nullopt;
    switch (command) {
    case CameraCommand::ShowAll:
        return fly([this](OrbitCamera &camera) { fit(camera, 0); });
    case CameraCommand::FromFront:
        return showFrom(Side::Front);
    case CameraCommand::FromRear:
        return showFrom(Side::Rear);
    case CameraCommand::FromAbove:
        return showFrom(Side::Above);
    case CameraCommand::FromOtherSide:
        return fly([](OrbitCamera &camera) { camera.LookFromOtherSide(); });
    }
}

void CameraControls::showFrom(Side side)
{
    fly([this, side](OrbitCamera &camera) {
        const int last = m_stage.View()->Models.Count();
        camera.LookFrom(side);
        fit(camera, side == Side::Front ? 1 : side == Side::Rear ? last : 0);
    });
}

/// Shows the whole train, with the target in the depth of this vehicle; 0 for the middle of the
/// train.
void CameraControls::fit(OrbitCamera &camera, int middlePlace)
{
    const ViewObjects &models = m_stage.View()->Models;
    const auto all = CornersOf(models, m_stage.View()->ShowsLoads());
    const auto one = middlePlace ? CornersOfObject(models, middlePlace) : all;
    camera.ShowAll(all, MiddleOf(one.empty() ? all : one), static_cast<float>(m_picture.width()),
                   static_cast<float>(m_picture.height()));
}

void CameraControls::move(bool along, const std::function<void(OrbitCamera &)> &change)
{
    TSView *view = m_stage.View();
    m_whileLoading.reset();
    if (!view)
        return;
    Q_EMIT VehicleChosen({});
    try {
        OrbitCamera camera(*view);
        change(camera);
        view->FitHaze(*view);
        view->ResetCamera();
    } catch (const host::RuntimeError &error) {
        Q_EMIT StatusChanged(QString::fromStdString(error.what()));
    }
    Q_EMIT Moved(along);
}

/// Moves the camera smoothly. The scene has its new pose at once; the canvas follows.
void CameraControls::fly(const std::function<void(OrbitCamera &)> &change)
{
    TSView *view = m_stage.View();
    if (!view)
        return;
    Q_EMIT VehicleChosen({});
    m_shown = tmrCamera.isActive() ? m_shown : *view;
    try {
        OrbitCamera camera(*view);
        change(camera);
    } catch (const host::RuntimeError &error) {
        Q_EMIT StatusChanged(QString::fromStdString(error.what()));
    }
    m_flight = {m_shown, *view};
    m_flown.start();
    if (m_animated && m_picture.isVisible() && m_shown != *view)
        tmrCamera.start(kFrameMilliseconds);
    else
        arrive();
    Q_EMIT Moved(true);
}

void CameraControls::step()
{
    TSView *view = m_stage.View();
    const float part = static_cast<float>(m_flown.elapsed()) / kFlightMilliseconds;
    if (!view || part >= 1) {
        arrive();
        return;
    }
    m_shown = m_flight.At(part);
    view->FitHaze(m_shown);
    view->ShowFrom(m_shown);
}

void CameraControls::arrive()
{
    tmrCamera.stop();
    if (TSView *view = m_stage.View()) {
        view->FitHaze(*view);
        view->ResetCamera();
    }
}

void CameraControls::Finish()
{
    if (tmrCamera.isActive())
        arrive();
}

} // namespace viewer
