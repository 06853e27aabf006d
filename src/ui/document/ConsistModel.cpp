// SPDX-License-Identifier: MIT
#include "ui/document/ConsistModel.h"

#include "ui/document/StockListModel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

namespace document {

namespace {

/// Rows that a search has found differ in colour and weight.
QVariant foundLook(int role)
{
    if (role == Qt::FontRole) {
        QFont font = QApplication::font("QAbstractItemView");
        font.setBold(true);
        return font;
    }
    QColor colour = QApplication::palette().color(QPalette::Highlight);
    colour.setAlphaF(0.25F);
    return QBrush(colour);
}

} // namespace

void ConsistModel::SetRows(std::vector<ConsistRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    m_remarks.Clear(m_rows.size());
    m_found.clear();
    endResetModel();
}

void ConsistModel::SetRemark(int row, const QString &remark)
{
    if (m_remarks.Set(row, remark))
        Q_EMIT dataChanged(index(row, 0), index(row, kStockColumns - 1));
}

void ConsistModel::SetFound(std::vector<bool> found)
{
    if (found == m_found)
        return;
    m_found = std::move(found);
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1),
                           {Qt::BackgroundRole, Qt::FontRole});
}

void ConsistModel::ShowFigure(content::FactColumn column, bool show)
{
    if (m_figures.IsShown(column) == show)
        return;
    const int at = kStockColumns + m_figures.PlaceOf(column);
    if (show)
        beginInsertColumns({}, at, at);
    else
        beginRemoveColumns({}, at, at);
    m_figures.Show(column, show);
    if (show)
        endInsertColumns();
    else
        endRemoveColumns();
}

int ConsistModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ConsistModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kStockColumns + static_cast<int>(m_figures.Shown().size());
}

QVariant ConsistModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (IsFound(index.row()) && (role == Qt::BackgroundRole || role == Qt::FontRole))
        return foundLook(role);
    const bool isFigure = index.column() >= kStockColumns;
    if (isFigure && (role != Qt::ToolTipRole || !HasRemark(index.row())))
        return m_figures.Data(Item(index.row()), index.column() - kStockColumns, role);
    if (role == Qt::DisplayRole)
        return StockColumn(Item(index.row()), index.column(), role);
    // The first column is too narrow for an icon.
    return m_remarks.Data(index.row(), role, index.column() == kStockColumns - 1);
}

QVariant ConsistModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section >= kStockColumns && section < columnCount() && orientation == Qt::Horizontal)
        return m_figures.Header(section - kStockColumns, role);
    return StockHeader(section, orientation, role);
}

} // namespace document
