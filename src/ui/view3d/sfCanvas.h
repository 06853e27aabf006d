// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/SceneCanvas.h"

#include <QImage>
#include <QWidget>

#include <memory>
#include <string>

namespace host {
class GameFiles;
}
namespace korvat {
class OffscreenPainter;
}

/// The 3D canvas: shows the last frame that a scene has drawn, whenever the window wants it, and
/// tells what the mouse does on it, in pixels that do not depend on the screen's density.
///
/// It paints images that OpenGL has drawn without a window. A widget that is OpenGL's own would
/// make the toolkit create the main window anew when the first one appears, draw everything in it
/// through OpenGL from then on, and end the program on platforms without OpenGL.
class sfCanvas : public QWidget, public korvat::SceneCanvas
{
    Q_OBJECT

public:
    /// Why there can be no canvas here, as words for the user; "" when there can be one.
    static const std::string &WhyNot();

    /// `files` writes the snapshots and must outlive the canvas.
    explicit sfCanvas(host::GameFiles &files, QWidget *parent = nullptr);
    ~sfCanvas() override;

    void CanvasStart() override;

    /// The picture that is shown, in the screen's own pixels; null when there is none.
    QImage Picture();

    /// Whether a snapshot may take the place of the last one; at first it gets a number of its own.
    void SetOverwriteSnapshot(bool overwrite) { m_overwrite = overwrite; }
    /// Where snapshots go, without number and extension ("C:\shots\ZELKC").
    void SetSnapshotFile(const std::string &path) { m_snapshotBase = path; }
    /// The file that SaveSnapshot would write now: "C:\shots\ZELKC-0001.png", or the first number
    /// that is free.
    std::string SnapshotFile() const;
    /// Writes the picture as it is shown. RuntimeError 70, 75 or 76 as GameFiles::WriteFile, 5 when
    /// there is no picture.
    void SaveSnapshot();

Q_SIGNALS:
    void MouseDown(int button, float x, float y);
    void MouseUp();
    /// The buttons held: 1 left, 2 right, 4 the middle one, or their sum.
    void MouseMove(int buttons, float x, float y);
    /// Notches of the wheel, away from the user positive.
    void WheelTurned(float notches);
    /// The user wants the first view back: a double click.
    void ResetWanted();
    /// The graphics system has dropped everything: the scene is to draw again.
    void DrawWanted();
    /// No picture can be shown after all.
    void Failed(const std::string &reason);

protected:
    void frameReady() override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void makePainter();
    void giveUp(const std::string &reason);
    QImage paintFrame();

    host::GameFiles &m_files;
    std::unique_ptr<korvat::OffscreenPainter> m_painter;
    QImage m_picture;
    bool m_stale = true; ///< there is a newer frame than the picture
    bool m_overwrite = false;
    std::string m_snapshotBase;
};
