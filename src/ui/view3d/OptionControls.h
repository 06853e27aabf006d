// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/ViewOptions.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>

class QWidget;

namespace viewer {

class MissingList;
class PartTree;
class Stage;
class ViewTools;

/// What a 3D window shows of its content: the options of its stage, and the controls over the view
/// that show and change them. Without a view, only the options.
class OptionControls : public QObject
{
    Q_OBJECT

public:
    /// `stage` and `view`, the canvas of the window or null, must outlive the controls; `pane`
    /// contains the canvas. `showLoads` shows or hides the loads of vehicles everywhere.
    OptionControls(Stage &stage, QWidget *view, QWidget &pane,
                   std::function<void(bool shown)> showLoads);

    /// Sets whether the tool row fades in and out; true at first.
    void SetAnimated(bool animated);

    const ViewOptions &Options() const;
    /// Changes the options, and shows the new ones.
    void Set(const ViewOptions &options);
    /// Chooses a finer (`by` is negative) or coarser level of detail among those of the scene.
    void ChangeLevel(int by);
    /// Changes the speed by so many km/h.
    void ChangeSpeed(int by);
    /// Tells the controls that the loads of vehicles are shown or hidden.
    void LoadsShown(bool shown);
    /// Shows the tool row and gives it the focus, or hides it.
    void SwitchTools();
    void ShowParts(bool shown);
    bool PartsShown() const { return m_partsShown; }

    /// Shows the levels, parts and missing textures of a scene after it was loaded or reloaded.
    void SceneChanged();
    /// Moves the controls after the view has another size.
    void Place();
    /// Lets the wheels turn only while the view can be seen.
    void SetVisible(bool visible);

    QTimer tmrRoll; ///< runs only while the wheels turn

Q_SIGNALS:
    /// Emitted after the options, or what the lists show, have changed.
    void Changed();
    void StatusChanged(const QString &text);

private:
    void makeControls(QWidget &pane);
    void roll();
    void updateTimer();
    void showState();
    void fillMissing();

    Stage &m_stage;
    QWidget *m_view;
    std::function<void(bool)> m_showLoads;
    ViewTools *m_tools = nullptr; ///< like the lists, null without a view
    PartTree *m_parts = nullptr;
    MissingList *m_missing = nullptr;
    bool m_loadsShown = true, m_partsShown = false, m_visible = true;
    QElapsedTimer m_rolled;

    static constexpr int kFrameMilliseconds = 33;
    static constexpr qint64 kLongestStep = 250; ///< milliseconds; the wheels do not jump
};

} // namespace viewer
