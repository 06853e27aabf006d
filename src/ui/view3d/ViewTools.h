// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/SceneParts.h"
#include "viewer/ViewOptions.h"

#include <QFrame>
#include <QTimer>

#include <vector>

class QComboBox;
class QGraphicsOpacityEffect;
class QLabel;
class QPropertyAnimation;
class QSlider;
class QToolButton;

namespace viewer {

/// The largest speed of the tool row, in km/h.
inline constexpr int kFastest = 200;
/// Convert between the speed of the options and whole km/h.
int ToKilometres(float metresPerSecond);
float FromKilometres(int kilometresPerHour);

/// The tool row of a 3D view: what the view shows of its content. Hidden until the mouse moves into
/// the upper right corner of the view, or until it is called by Reveal. Fades in and stays while it
/// is in use: while the mouse is over it, one of its controls has the focus, or a list is open.
class ViewTools : public QFrame
{
    Q_OBJECT

public:
    /// `view` is the control that the row covers; `parent` contains both.
    ViewTools(QWidget &view, QWidget *parent);

    /// Sets whether the row fades in and out; true at first.
    void SetAnimated(bool animated) { m_animated = animated; }
    /// Sets the controls to these values, without a signal.
    void Show(const ViewOptions &options, bool loads, bool parts);
    void ShowLevels(const std::vector<LevelDistances> &levels);
    /// Shows the row and gives the focus to its first control.
    void Reveal();
    /// Hides the row; the view gets the focus if one of the controls has it.
    void Conceal();
    /// Moves the row into its corner, after the view has another size.
    void Place();

    QComboBox *cboSeason;
    QToolButton *cmdSnow, *cmdNight, *cmdLights;
    QComboBox *cboLevel;
    QSlider *sldSpeed;
    QLabel *lblSpeed;
    QToolButton *cmdPantographs, *cmdLoads, *cmdBoxes, *cmdWireframe, *cmdNormals, *cmdMissing,
        *cmdParts, *cmdHideTools;
    QTimer tmrTools; ///< runs for a moment after the mouse has left the row

    static constexpr int kFadeMilliseconds = 150, kStayMilliseconds = 700;

Q_SIGNALS:
    /// Emitted when the user has changed the options; those without a control keep their values.
    void OptionsChanged(const viewer::ViewOptions &options);
    void LoadsWanted(bool shown);
    void PartsWanted(bool shown);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolButton *button(const char *caption, bool checkable = true);
    void nameControls();
    void addControls();
    void connectControls();
    void connectSwitch(QToolButton *button, bool ViewOptions::*option);
    void mouseAt(const QPoint &place);
    void appear();
    void fadeTo(double opacity);
    void hideUnlessUsed();
    bool inUse() const;
    void showSpeed();

    QWidget &m_view;
    bool m_animated = true;
    ViewOptions m_options; ///< that the controls show
    QGraphicsOpacityEffect *m_opacity;
    QPropertyAnimation *m_fade;
};

} // namespace viewer
