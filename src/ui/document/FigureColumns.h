// SPDX-License-Identifier: MIT
#pragma once

#include "ui/document/EditorLayout.h"
#include "ui/document/FigureCells.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <vector>

class QAction;

namespace document {

class ListView;
class StockFigures;

/// The columns of figures in a list of vehicles: the header's menu shows and hides them, also with
/// Ctrl+0 in the list. Keeps the choice and the widths in the layout.
class FigureColumns : public QObject
{
    Q_OBJECT

public:
    using Show = std::function<void(content::FactColumn column, bool show)>;

    /// `show` changes the model of the list, which has `ownColumns` other columns. All arguments
    /// must outlive this object; `layout` may be null.
    FigureColumns(ListView &list, const FigureCells &cells, Show show, int ownColumns,
                  std::vector<ShownFigure> *layout, QObject *parent = nullptr);

    /// Adds a choice to the end of the menu.
    void AddChoice(QAction *choice) { m_choices.push_back(choice); }
    /// Repaints the figures.
    void Refresh();

Q_SIGNALS:
    void Changed();

private:
    void showKept(const std::vector<ShownFigure> &kept);
    void popUpMenu(const QPoint &globalPosition);
    void set(content::FactColumn column, bool show, int width);
    int usualWidth(content::FactColumn column) const;
    void keep();

    ListView &m_list;
    const FigureCells &m_cells;
    Show m_show;
    int m_ownColumns;
    std::vector<ShownFigure> *m_layout;
    std::vector<QAction *> m_choices;
};

} // namespace document
