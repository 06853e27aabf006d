// SPDX-License-Identifier: MIT
#include "ui/document/ConsistModel.h"

#include "ui/document/StockListModel.h"

namespace document {

void ConsistModel::SetRows(std::vector<ConsistRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    m_remarks.Clear(m_rows.size());
    endResetModel();
}

void ConsistModel::SetRemark(int row, const QString &remark)
{
    if (m_remarks.Set(row, remark))
        Q_EMIT dataChanged(index(row, 0), index(row, kStockColumns - 1));
}

int ConsistModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ConsistModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kStockColumns;
}

QVariant ConsistModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return StockColumn(Item(index.row()), index.column(), role);
    // The first column is too narrow for an icon.
    return m_remarks.Data(index.row(), role, index.column() == kStockColumns - 1);
}

QVariant ConsistModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return StockHeader(section, orientation, role);
}

} // namespace document
