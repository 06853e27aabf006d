// SPDX-License-Identifier: MIT
#include "ui/document/ConsistModel.h"

#include "ui/document/StockListModel.h"

namespace document {

void ConsistModel::SetRows(std::vector<ConsistRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
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
    return index.isValid() ? StockColumn(Item(index.row()), index.column(), role) : QVariant();
}

QVariant ConsistModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return StockHeader(section, orientation, role);
}

} // namespace document
