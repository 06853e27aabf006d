// SPDX-License-Identifier: MIT
#pragma once

#include "document/WindowMode.h"
#include "host/Dialogs.h"
#include "ui/main/SelectionRemark.h"
#include "ui/main/frmMain.h"

#include <string>

namespace app {

/// The commands that open the selected consist or vehicle in another window.
class ConsistCommands
{
public:
    explicit ConsistCommands(frmMain &window)
        : m_window(window)
    {
    }

    void Edit()
    {
        frmDocument *active = m_window.ActiveDocument();
        if (!active)
            return;
        const std::string name = active->SelectedConsist();
        if (name.empty()) {
            sayNothingSelected("Edit");
            return;
        }
        const std::string only = OnlyOneRemark(*active, "was opened");
        active->EditConsist(name);
        remarkOnOpened(*active, only);
    }

    void View()
    {
        frmDocument *active = m_window.ActiveDocument();
        if (!active)
            return;
        const std::string name = active->SelectedConsist();
        if (active->Mode() == document::WindowMode::ConsistEditor) {
            active->ActionClick(document::EditorAction::ViewConsist);
        } else if (active->Mode() == document::WindowMode::ConsistList && !name.empty()) {
            const std::string only = OnlyOneRemark(*active, "was opened");
            active->ViewConsist(name);
            remarkOnOpened(*active, only);
        } else {
            sayNothingSelected("View Consist");
        }
    }

    void ViewShape()
    {
        frmDocument *active = m_window.ActiveDocument();
        if (!active)
            return;
        if (active->SelectedItem().empty())
            sayNothingSelected("View Shape");
        else
            active->ActionClick(document::EditorAction::ViewShape);
    }

    void RunOnUnits(document::UnitCommand command)
    {
        if (frmDocument *active = m_window.ActiveDocument())
            active->RunOnUnits(command);
    }

private:
    void sayNothingSelected(const std::string &title)
    {
        m_window.Environment().dialogs.Message("Nothing selected!", title,
                                               host::DialogIcon::Critical);
    }

    /// Passes the remark to the window that has opened from `list`, if any.
    void remarkOnOpened(const frmDocument &list, const std::string &remark)
    {
        frmDocument *opened = m_window.ActiveDocument();
        if (opened && opened != &list && !remark.empty())
            opened->Remark(remark);
    }

    frmMain &m_window;
};

} // namespace app
