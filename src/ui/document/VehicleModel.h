// SPDX-License-Identifier: MIT
#pragma once

#include "install/Train.h"
#include "ui/document/FigureCells.h"

#include <QAbstractTableModel>

namespace document {

using install::StockItem;

/// The columns "Type", "Folder" and "Shape"; the columns of figures follow.
inline constexpr int kStockColumns = 3;

/// A list of vehicles, one in each row: the installed stock, or the units of a train.
class VehicleModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    virtual const StockItem &Item(int row) const = 0;

    const FigureCells &Figures() const { return m_figures; }
    void SetFigureSource(const StockFigures *figures) { m_figures.SetSource(figures); }
    void ShowFigure(content::FactColumn column, bool show);

    int columnCount(const QModelIndex &parent = {}) const override;
    /// Screen readers get the whole row as the description of each cell.
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    FigureCells m_figures;
};

} // namespace document
