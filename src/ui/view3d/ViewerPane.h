// SPDX-License-Identifier: MIT
#pragma once

#include "ui/view3d/CameraControls.h"
#include "ui/view3d/FileWatch.h"
#include "ui/view3d/OptionControls.h"
#include "viewer/Stage.h"

#include <QImage>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <string>

class QGridLayout;
class QLabel;
class QScrollBar;
class sfCanvas;

namespace viewer {

class SavedPictureBar;
class VehicleLabel;

/// The parts of the program that a 3D window uses; all of them must outlive the pane.
struct PaneHost
{
    install::Environment environment;
    std::function<void(const std::string &)> setStatus;
    /// Reports loading progress, 0 to `total`; a `total` of 0 means finished.
    std::function<void(int done, int total)> setProgress;
    /// Opens a file or folder outside the program.
    std::function<void(const std::string &)> openOutside;
    /// Shows or hides the loads of vehicles in all 3D windows.
    std::function<void(bool shown)> showLoads;
    bool animates = true; ///< the system does not ask for still pictures
};

/// The controls of a 3D window: the canvas, the scroll bar along the train below it, and the scroll
/// bar for the camera's height at its right. Without OpenGL, the pane shows the reason as text, and
/// loads shapes only for their reports. When a file of the scene changes on the disk, it shows the
/// new content; on drives that report no changes, when the main window becomes active.
///
/// On the canvas, the left button turns the camera about its target, and the right button slides
/// both. The middle button slides the picture with the mouse, and the wheel moves the camera
/// towards what is under the mouse. A double click on a vehicle makes it the target and shows its
/// name; beside the vehicles, it restores the first view. The arrow keys work like the scroll bars.
/// The tool row of ViewTools covers the upper right corner while it is needed.
class ViewerPane : public QWidget
{
    Q_OBJECT

public:
    explicit ViewerPane(const PaneHost &host, QWidget *parent = nullptr);
    ~ViewerPane() override;

    /// Begin to show a new scene and load the rest from the event loop; Loaded follows. Throw as
    /// Stage does.
    void RenderConsist(const std::string &file, const std::string &installFolder);
    void RenderLooseConsist(const StfNode &trainCfg, const std::string &installFolder,
                            const std::string &source);
    void RenderShape(const std::string &file, const std::string &vehicle);
    /// Shows or hides the loads of vehicles, now and in later scenes.
    void ShowLoads(bool shown);
    /// The options of the window and their controls.
    OptionControls &Options() { return m_options; }
    const std::string &Caption() const { return m_stage.Caption(); }
    bool Loading() const { return m_stage.Loading(); }
    /// Returns the scene, or null before the first one.
    TSView *View() { return m_stage.View(); }
    /// Stops loading; what is loaded stays.
    void Stop();
    /// Appends a remark to the status texts of the current load, up to the one that reports its
    /// end.
    void AddRemark(const std::string &remark) { m_remark = "  " + remark; }

    void ResetView() { m_camera.Reset(); }
    /// Moves the camera for the commands of the View menu.
    CameraControls &Camera() { return m_camera; }
    /// Returns the texture report; "" if nothing is shown.
    std::string Report() const { return m_stage.Report(); }
    /// Returns the image that is shown. Throws RuntimeError 5 if there is none.
    QImage Picture();
    /// Draws the scene in this size. A transparent picture holds only the vehicles or the shape.
    /// Throws RuntimeError 5 if that is not possible.
    QImage DrawPicture(const QSize &size, bool transparent);
    /// Saves a screenshot as `base` with the first free number. Reports its path in the status,
    /// which calls it a `what` ("consist") snapshot, and in a bar that stays on the canvas. Throws
    /// RuntimeError like sfCanvas::SaveSnapshot, and 5 if there is no canvas.
    void SaveSnapshot(const std::string &base, const std::string &what);

    sfCanvas *sfViewer = nullptr; ///< null without OpenGL
    QScrollBar *hscView;
    QScrollBar *vscView;
    QTimer tmrRenderer; ///< runs while a scene is loading

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;

private:
    QScrollBar *makeScrollBar(Qt::Orientation orientation, const char *name, const char *title);
    void connectScrollBars();
    void connectCanvas();
    void connectCamera();
    void makePictureBar();
    void setStatus(const std::string &text) { m_host.setStatus(text + m_remark); }
    void showNoCanvas(const std::string &reason);
    void begin();
    void step();
    void told(const std::function<void()> &piece);
    void end();
    void followChanges();
    void showPlace();
    void showHeight();

    PaneHost m_host;
    std::string m_remark; ///< for the end of status texts, "" for none
    QGridLayout *m_grid;
    QLabel *m_noCanvas = nullptr;
    SavedPictureBar *m_savedPicture = nullptr; ///< null without OpenGL
    VehicleLabel *m_vehicle = nullptr;         ///< null without OpenGL
    Stage m_stage;
    CameraControls m_camera;
    OptionControls m_options;
    FileWatch m_watch;
};

} // namespace viewer
