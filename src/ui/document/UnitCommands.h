// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"
#include "ui/document/UnitCommand.h"

#include <QObject>

#include <string>
#include <vector>

class QMimeData;
class frmDocument;

namespace document {

class DocumentHost;
class EditorControls;
struct CopiedUnits;

/// Carries out the edits of a consist editor on the selected units and stock, and shows the result.
class UnitCommands : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this object.
    UnitCommands(frmDocument &window, DocumentHost &host, ConsistTree &consist,
                 EditorControls &controls, QObject *parent = nullptr);

    /// Runs an editing button. Marks the consist as changed even if nothing changes.
    void Press(Move move);
    /// Runs a command. The consist counts as changed only if it did change.
    void Run(UnitCommand command);

    /// Makes the selected unit name another vehicle of the same kind.
    void Replace(const StockItem &vehicle);

    /// Copies the selected units for the clipboard or a drag.
    CopiedUnits Selected() const;
    /// Moves the selected units in front of the unit in row `place`, from 1.
    void MoveTo(int place);
    /// Inserts units, so that the first one becomes row `place`; 0 appends them.
    void Insert(const QMimeData &content, int place);

Q_SIGNALS:
    /// Emitted when an edit may have changed the consist.
    void Edited();

private:
    std::vector<int> selectedRows() const;
    std::vector<StockItem> selectedStock() const;
    int placeBehindSelection() const;
    void runOnStock(UnitCommand command);
    void runOnUnits(UnitCommand command);
    EditResult edited(UnitCommand command, const std::vector<int> &rows);
    void addSeveral(std::vector<StockItem> stock);
    void copy(const std::vector<int> &rows);
    void paste();
    void step(bool redo);
    void selectKind(const std::vector<int> &rows);
    void show(const EditResult &result, bool wasChanged);

    frmDocument &m_window;
    DocumentHost &m_host;
    ConsistTree &m_consist;
    EditorControls &m_controls;
};

} // namespace document
