// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/OrbitCamera.h"
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

/// What a 3D window needs of the program around it; everything must outlive the pane.
struct PaneHost
{
    Services services;
    std::function<void(const std::string &)> setStatus;
    /// How far a loading is, 0 to `total`; a total of 0 says that it has ended.
    std::function<void(int done, int total)> setProgress;
    /// Opens a file or folder outside the program.
    std::function<void(const std::string &)> openOutside;
};

/// The controls of a 3D window: the canvas, below it the scroll bar along the train, at its right
/// the one for the camera's height. Where there is no OpenGL the pane says so in words, and shapes
/// are loaded for their reports alone.
///
/// On the canvas, the left button turns the camera about what it looks at, the right one slides
/// both, the wheel goes nearer or away, a double click brings the first view back; the arrow keys
/// do what the scroll bars do.
class ViewerPane : public QWidget
{
    Q_OBJECT

public:
    explicit ViewerPane(const PaneHost &host, QWidget *parent = nullptr);
    ~ViewerPane() override;

    /// These begin to show something new, and load the rest from the event loop. Throw as Stage
    /// does.
    void RenderConsist(const std::string &file, const std::string &installFolder);
    void RenderLooseConsist(const StfNode &trainCfg, const std::string &installFolder,
                            const std::string &source);
    void RenderShape(const std::string &file);
    const std::string &Caption() const { return m_stage.Caption(); }
    bool Loading() const { return m_stage.Loading(); }
    /// The scene, or null before there is one.
    TSView *View() { return m_stage.View(); }
    /// Ends a running loading; what is there stays.
    void Stop();
    /// Appends a remark to the status texts of the load under way, up to the one that reports its
    /// end.
    void AddRemark(const std::string &remark) { m_remark = "  " + remark; }

    void ResetView();
    /// The textures of what is shown; "" when nothing is.
    std::string Report() const { return m_stage.Report(); }
    /// The picture as it is shown. RuntimeError 5 where there is none.
    QImage Picture();
    /// Saves the picture as `base` with the first free number, and reports where: the status with
    /// `what` ("consist") in its words, then a line across the canvas that stays. RuntimeError as
    /// sfCanvas::SaveSnapshot; 5 without a canvas.
    void SaveSnapshot(const std::string &base, const std::string &what);

    sfCanvas *sfViewer = nullptr; ///< null where there is no OpenGL
    QScrollBar *hscView;
    QScrollBar *vscView;
    QTimer tmrRenderer; ///< runs while a scene is being loaded

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QScrollBar *makeScrollBar(Qt::Orientation orientation, const char *name, const char *title);
    void connectScrollBars();
    void connectCanvas();
    void makePictureBar();
    void setStatus(const std::string &text) { m_host.setStatus(text + m_remark); }
    void showNoCanvas(const std::string &reason);
    void begin();
    void step();
    void told(const std::function<void()> &piece);
    void end();
    void drag(int buttons, float x, float y);
    void moveCamera(const std::function<void(OrbitCamera &)> &move);
    void showPlace();
    void showHeight();

    PaneHost m_host;
    std::string m_remark; ///< for the end of status texts, "" for none
    QGridLayout *m_grid;
    QLabel *m_noCanvas = nullptr;
    SavedPictureBar *m_savedPicture = nullptr; ///< null where there is no OpenGL
    Stage m_stage;
    bool m_dragging = false;
    bool m_tiltsOver = false; ///< the drag began level beside the train: it tilts over the target
    float m_lastX = 0, m_lastY = 0;
};

} // namespace viewer
