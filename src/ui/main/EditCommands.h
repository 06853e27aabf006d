// SPDX-License-Identifier: MIT
#pragma once

#include "app/ConsistFiles.h"
#include "document/WindowMode.h"
#include "host/Guard.h"
#include "ui/document/UnitMime.h"
#include "ui/main/SelectionRemark.h"
#include "ui/main/frmMain.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>

namespace app {

/// The clipboard commands and undo. In a train, they work on units; in a text field, on its text;
/// everywhere else, on whole consist files, where Cut deletes a file.
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
        if (QLineEdit *field = textField())
            field->cut();
        else if (frmDocument *train = activeTrain())
            train->RunOnUnits(document::UnitCommand::Cut);
        else if (const frmDocument *list = activeList())
            cutConsist(*list);
    }

    void Copy()
    {
        if (QLineEdit *field = textField())
            field->copy();
        else if (frmDocument *train = activeTrain())
            train->RunOnUnits(document::UnitCommand::Copy);
        else if (const frmDocument *list = activeList())
            copyConsist(*list);
    }

    void Paste()
    {
        if (QLineEdit *field = textField())
            field->paste();
        else if (frmDocument *train = activeTrain())
            train->RunOnUnits(document::UnitCommand::Paste);
        else
            pasteConsist();
    }

    /// Returns false if the active window has no undo.
    bool Undo() { return runOnEditor(document::UnitCommand::Undo); }
    void Redo() { runOnEditor(document::UnitCommand::Redo); }

private:
    bool runOnEditor(document::UnitCommand command)
    {
        frmDocument *active = m_window.ActiveDocument();
        if (!active || active->Mode() != document::WindowMode::ConsistEditor)
            return false;
        active->RunOnUnits(command);
        return true;
    }

    void cutConsist(const frmDocument &list)
    {
        const std::string name = list.SelectedConsist(), only = OnlyOneRemark(list, "was deleted");
        document::Guarded(m_window.Environment().dialogs, "Delete", [&] {
            const std::string result = CutConsist(name, m_window.Environment(), m_desktop);
            m_window.SetStatus(result.empty() || only.empty() ? result : result + "  " + only);
        });
    }

    void copyConsist(const frmDocument &list)
    {
        QClipboard &clipboard = *QGuiApplication::clipboard();
        clipboard.clear();
        if (const std::string name = list.SelectedConsist(); !name.empty())
            clipboard.setText(QString::fromStdString(name));
        m_window.SetStatus(OnlyOneRemark(list, "was copied"));
    }

    void pasteConsist()
    {
        const QMimeData *content = QGuiApplication::clipboard()->mimeData();
        if (content && document::HoldsUnits(*content))
            m_window.SetStatus("Units can be pasted only into a train.");
        else
            PasteConsist(QGuiApplication::clipboard()->text().toStdString(),
                         m_window.Environment());
    }

    /// Returns the text field that has the focus and can be edited, or null.
    static QLineEdit *textField()
    {
        auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        return field && !field->isReadOnly() ? field : nullptr;
    }

    /// Returns the active window if it is an editor and the user is in its train, else null.
    frmDocument *activeTrain() const
    {
        frmDocument *active = m_window.ActiveDocument();
        return active && active->TrainIsActive() &&
                       !qobject_cast<QLineEdit *>(QApplication::focusWidget())
                   ? active
                   : nullptr;
    }

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
