// SPDX-License-Identifier: MIT
#pragma once

#include "ui/view3d/CameraCommand.h"
#include "viewer/CameraFlight.h"
#include "viewer/OrbitCamera.h"
#include "viewer/Picking.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>
#include <string>

class sfCanvas;

namespace viewer {

class Stage;

/// Moves the camera of a 3D window for the mouse, the scroll bars and the commands of the View
/// menu. Each movement ends with one TSView::ResetCamera. Does nothing without a scene.
///
/// Commands move the camera smoothly, unless the system asks for no animations. A movement of the
/// user during that time starts where the command would have ended.
class CameraControls : public QObject
{
    Q_OBJECT

public:
    /// `stage` and `picture` must outlive the controls. `picture` is the canvas, or the control in
    /// its place.
    CameraControls(Stage &stage, const QWidget &picture);

    /// Follows the mouse on a canvas, which must outlive the controls.
    void Connect(sfCanvas &canvas);
    /// Sets whether commands move the camera smoothly; true at first.
    void SetAnimated(bool animated) { m_animated = animated; }

    /// Returns to the first view, at once.
    void Reset();
    void MoveAlong(float z);
    void SetHeight(float height);
    /// Moves the camera for a command. ShowAll keeps its direction. FromFront, FromRear and
    /// FromAbove show the whole train from there; in front of it and behind it, the camera turns
    /// about the first or last vehicle.
    void Run(CameraCommand command);
    /// Repeats a command that was to show everything while the scene was still loading, unless the
    /// user has moved the camera since. Call it when everything is there.
    void RunAgain();
    /// Ends a smooth movement where it leads to.
    void Finish();

    QTimer tmrCamera; ///< runs only during a smooth movement

    static constexpr int kFlightMilliseconds = 250;

Q_SIGNALS:
    /// Emitted when the camera has moved. `along` is false for the movements that do not concern
    /// the scroll bar along the train.
    void Moved(bool along);
    /// Emitted when the user has chosen a vehicle by a double click; "" when the next action has
    /// ended that.
    void VehicleChosen(const QString &name);
    void StatusChanged(const QString &text);

private:
    void press(int button, float x, float y);
    void drag(int buttons, float x, float y);
    void pan(float x, float y);
    void wheel(float notches, float x, float y);
    void doubleClick(float x, float y);
    void move(bool along, const std::function<void(OrbitCamera &)> &change);
    void fly(const std::function<void(OrbitCamera &)> &change);
    void showFrom(Side side);
    void fit(OrbitCamera &camera, int middlePlace);
    void step();
    void arrive();
    Sight sight() const;
    float depthAt(float x, float y) const;
    float farthest() const;

    Stage &m_stage;
    const QWidget &m_picture;
    bool m_animated = true;
    bool m_dragging = false;
    bool m_tiltsOver = false; ///< the drag began beside the target and level with it
    float m_lastX = 0, m_lastY = 0;
    float m_panDepth = 0; ///< of the point that a drag with the middle button holds
    CameraPose m_shown;   ///< during a smooth movement
    std::optional<CameraCommand> m_whileLoading;
    CameraFlight m_flight;
    QElapsedTimer m_flown;
};

} // namespace viewer
