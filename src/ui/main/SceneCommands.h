// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/MainMenu.h"
#include "ui/main/frmMain.h"
#include "ui/view3d/OptionControls.h"

#include <QAction>

namespace app {

/// The submenu of View for what the active 3D window shows of its content.
class SceneCommands
{
public:
    explicit SceneCommands(frmMain &window)
        : m_window(window)
    {
    }

    void Switch(bool viewer::ViewOptions::*option)
    {
        change([option](viewer::ViewOptions &options) { options.*option = !(options.*option); });
    }
    void Choose(viewer::Season season)
    {
        change([season](viewer::ViewOptions &options) { options.season = season; });
    }
    void StopWheels()
    {
        change([](viewer::ViewOptions &options) { options.speed = 0; });
    }
    void ChangeLevel(int by)
    {
        if (viewer::OptionControls *scene = active())
            scene->ChangeLevel(by);
    }
    void ChangeSpeed(int by)
    {
        if (viewer::OptionControls *scene = active())
            scene->ChangeSpeed(by);
    }
    void SwitchTools()
    {
        if (viewer::OptionControls *scene = active())
            scene->SwitchTools();
    }
    void SwitchParts()
    {
        if (viewer::OptionControls *scene = active())
            scene->ShowParts(!scene->PartsShown());
    }

    /// Sets the check marks of the commands; none without a 3D window.
    template <typename Rows> void ShowState(const MainMenu &menus, const Rows &rows) const
    {
        const viewer::OptionControls *scene = active();
        const viewer::ViewOptions options = scene ? scene->Options() : viewer::ViewOptions();
        for (const auto &row : rows)
            menus.ActionOf(row.command).setChecked(scene && row.isOn(options, *scene));
    }

private:
    viewer::OptionControls *active() const
    {
        frmDocument *document = m_window.ActiveDocument();
        return document ? document->SceneOptions() : nullptr;
    }
    template <typename Change> void change(Change change)
    {
        viewer::OptionControls *scene = active();
        if (!scene)
            return;
        viewer::ViewOptions options = scene->Options();
        change(options);
        scene->Set(options);
        m_window.UpdateSceneOptions(); // also if nothing has changed: the menu has set its mark
    }

    frmMain &m_window;
};

} // namespace app
