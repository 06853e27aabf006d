// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"
#include "ui/document/FigureCells.h"
#include "ui/document/RowRemarks.h"

#include <QAbstractTableModel>

#include <vector>

namespace document {

/// The rows of lvConsist: the units of the train, in file order.
class ConsistModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Removes all remarks and marks.
    void SetRows(std::vector<ConsistRow> rows);
    const StockItem &Item(int row) const { return m_rows[static_cast<std::size_t>(row)].item; }

    void SetRemarkIcon(const QIcon &icon) { m_remarks.SetIcon(icon); }
    void SetRemark(int row, const QString &remark);
    bool HasRemark(int row) const { return m_remarks.Has(row); }

    /// Marks rows that a search has found; an empty list marks none.
    void SetFound(std::vector<bool> found);
    bool IsFound(int row) const
    {
        return !m_found.empty() && m_found[static_cast<std::size_t>(row)];
    }

    const FigureCells &Figures() const { return m_figures; }
    void SetFigureSource(const StockFigures *figures) { m_figures.SetSource(figures); }
    void ShowFigure(content::FactColumn column, bool show);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<ConsistRow> m_rows;
    RowRemarks m_remarks;
    std::vector<bool> m_found; ///< by row; empty if there is no search
    FigureCells m_figures;
};

} // namespace document
