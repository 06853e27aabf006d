// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockList.h"

#include <QAbstractTableModel>

#include <vector>

namespace document {

/// What the columns "Type", "Folder" and "Shape" show of a stock item, here and in the consist.
QVariant StockColumn(const StockItem &item, int column, int role);
QVariant StockHeader(int column, Qt::Orientation orientation, int role);
inline constexpr int kStockColumns = 3;

/// The rows of lvStock: the installed stock in listing order until it is sorted.
class StockListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void Clear();
    /// Appends in listing order; what is sorted already stays where it is until Resort.
    void Append(std::vector<StockItem> items);

    const StockOrder &Order() const { return m_order; }
    /// Sorts by this order; column -1 keeps the rows as they are.
    void SetOrder(const StockOrder &order);
    /// Sorts by a column, or turns the order round when it is sorted by that column already.
    void ClickHeader(int column);
    /// Brings rows that were appended meanwhile into the order.
    void Resort();

    const StockItem &Item(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<StockItem> m_items;
    std::vector<int> m_shown; ///< row to place in m_items
    StockOrder m_order;
};

} // namespace document
