// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/SceneCanvas.h"

#include <QImage>
#include <QWidget>

#include <memory>
#include <optional>
#include <string>

namespace host {
class GameFiles;
}
namespace korvat {
class OffscreenPainter;
}

/// The 3D canvas: shows the last frame of a scene whenever the window repaints, and emits mouse
/// events in pixels that do not depend on the screen's density.
///
/// It paints images that OpenGL has drawn without a window. Qt's OpenGL widget would make Qt create
/// the main window again when the first one appears, draw everything in it through OpenGL from then
/// on, and end the program on platforms without OpenGL.
class sfCanvas : public QWidget, public korvat::SceneCanvas
{
    Q_OBJECT

public:
    /// Returns the reason why there can be no canvas, in words for the user; "" if there can be
    /// one.
    static const std::string &WhyNot();

    /// `files` writes the screenshots and must outlive the canvas.
    explicit sfCanvas(host::GameFiles &files, QWidget *parent = nullptr);
    ~sfCanvas() override;

    void CanvasStart() override;

    /// Returns the image that is shown, in the screen's own pixels; null if there is none.
    QImage Picture();

    /// Draws the last frame in this size, on a plain background if `backdrop` is given. Everything
    /// that the canvas shows is in the image. Returns a null image if there is no room for it.
    QImage Draw(const QSize &size, const std::optional<korvat::Tint> &backdrop);

    /// If true, screenshots overwrite number 0001; if false (the default), each gets a free number.
    void SetOverwriteSnapshot(bool overwrite) { m_overwrite = overwrite; }
    /// Sets the path of screenshots without number and extension ("C:\shots\ZELKC").
    void SetSnapshotFile(const std::string &path) { m_snapshotBase = path; }
    /// Returns the file that SaveSnapshot would write now, such as "C:\shots\ZELKC-0001.png".
    std::string SnapshotFile() const;
    /// Writes the image that is shown. Throws RuntimeError 70, 75 or 76 like GameFiles::WriteFile,
    /// 5 if there is no image.
    void SaveSnapshot();

Q_SIGNALS:
    void MouseDown(int button, float x, float y);
    void MouseUp();
    /// `buttons` are those held: 1 left, 2 right, 4 middle, or their sum.
    void MouseMove(int buttons, float x, float y);
    /// Notches of the wheel, positive away from the user, and the place of the mouse.
    void WheelTurned(float notches, float x, float y);
    void DoubleClicked(float x, float y);
    /// Emitted when the OpenGL context was lost; redraw the scene.
    void DrawWanted();
    /// Emitted when no image can be shown after all.
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
    bool m_stale = true; ///< there is a newer frame than m_picture
    bool m_overwrite = false;
    std::string m_snapshotBase;
};
