// SPDX-License-Identifier: MIT
#pragma once

#include "app/ConsistFiles.h"
#include "document/WindowMode.h"
#include "host/Guard.h"
#include "ui/main/SelectionRemark.h"
#include "ui/main/frmMain.h"

#include <QClipboard>
#include <QGuiApplication>

namespace app {

/// The clipboard commands, which work on whole consist files. Cut deletes a file.
class EditCommands
{
public:
    EditCommands(frmMain &window, Desktop &desktop)
        : m_window(window)
        , m_desktop(desktop)
    {
    }

    void Cut()
    {
        const frmDocument *list = activeList();
        if (!list)
            return;
        const std::string name = list->SelectedConsist(),
                          only = OnlyOneRemark(*list, "was deleted");
        document::Guarded(m_window.Environment().dialogs, "Delete", [&] {
            const std::string result = CutConsist(name, m_window.Environment(), m_desktop);
            m_window.SetStatus(result.empty() || only.empty() ? result : result + "  " + only);
        });
    }

    void Copy()
    {
        const frmDocument *list = activeList();
        if (!list)
            return;
        QClipboard &clipboard = *QGuiApplication::clipboard();
        clipboard.clear();
        if (const std::string name = list->SelectedConsist(); !name.empty())
            clipboard.setText(QString::fromStdString(name));
        m_window.SetStatus(OnlyOneRemark(*list, "was copied"));
    }

    void Paste()
    {
        PasteConsist(QGuiApplication::clipboard()->text().toStdString(), m_window.Environment());
    }

private:
    /// Returns the active window if it is a consist list, else null.
    const frmDocument *activeList() const
    {
        const frmDocument *active = m_window.ActiveDocument();
        return active && active->Mode() == document::WindowMode::ConsistList ? active : nullptr;
    }

    frmMain &m_window;
    Desktop &m_desktop;
};

} // namespace app
