// SPDX-License-Identifier: MIT
#pragma once

#include "ui/view3d/VehiclePictures.h"

#include <QImage>
#include <QTimer>
#include <QWidget>

#include <string>

class QLabel;
class QPainter;

namespace viewer {

/// The picture part of a preview, which the user can turn: with the mouse, the wheel and the arrow
/// keys. Shows a text where there is no picture.
class TurningPicture : public QWidget
{
    Q_OBJECT

public:
    explicit TurningPicture(QWidget *parent = nullptr);

    void SetPicture(const QImage &picture);
    const QImage &Picture() const { return m_picture; }
    void SetText(const QString &text);
    const QString &Text() const { return m_text; }
    const VehicleView &View() const { return m_view; }
    /// Goes back to the first view.
    void ResetView() { m_view = {}; }

    QSize sizeHint() const override { return {240, 140}; }
    QSize minimumSizeHint() const override { return {120, 100}; }

Q_SIGNALS:
    /// The user has turned the vehicle.
    void Turned();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void turn(const VehicleView &view);
    void paintPicture(QPainter &painter) const;

    QImage m_picture;
    QString m_text;
    VehicleView m_view;
    QPointF m_last;
};

/// Shows one vehicle, small, and its name below. A change of the vehicle costs the window nothing:
/// the vehicle is loaded and drawn in the background, after a pause; until then a kept thumbnail is
/// shown, if there is one.
class VehiclePreview : public QWidget
{
    Q_OBJECT

public:
    /// `pictures` must outlive the preview.
    explicit VehiclePreview(VehiclePictures &pictures, QWidget *parent = nullptr);
    ~VehiclePreview() override;

    /// Shows the vehicle of an engine or wagon file; does nothing if it is shown already.
    void ShowVehicle(const std::string &stockFile, const QString &name);
    /// Shows a text in place of a vehicle.
    void ShowNothing(const QString &text);
    /// Reads the vehicle again.
    void ReadAgain();
    /// Returns true if the picture is that of the loaded vehicle, not a kept thumbnail.
    bool IsLive() const { return m_isLive; }

    TurningPicture *picPreview;
    QLabel *lblPreview;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void load();
    void draw(bool fresh);
    void describe(const QString &text);

    VehiclePictures &m_pictures;
    std::string m_stockFile; ///< "" for none
    QTimer m_pause;          ///< before a vehicle is loaded
    bool m_isLive = false;
};

} // namespace viewer
