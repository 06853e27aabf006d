// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockList.h"

#include <QAbstractTableModel>

#include <vector>

namespace document {

/// Return the content of the columns "Type", "Folder" and "Shape", in the stock list and in the
/// consist.
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
    /// Appends items in listing order. Rows that are already sorted keep their places until Resort.
    void Append(std::vector<StockItem> items);

    const StockOrder &Order() const { return m_order; }
    /// Sorts by this order; column -1 keeps the rows as they are.
    void SetOrder(const StockOrder &order);
    /// Sorts by a column, or reverses the order if it is already sorted by that column.
    void ClickHeader(int column);
    /// Sorts the rows again, including those appended since the last sort.
    void Resort();

    const StockItem &Item(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<StockItem> m_items;
    std::vector<int> m_shown; ///< for each row, its index in m_items
    StockOrder m_order;
};

} // namespace document
