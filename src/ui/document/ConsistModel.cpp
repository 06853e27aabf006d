// SPDX-License-Identifier: MIT
#include "ui/document/ConsistModel.h"

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

int ConsistModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ConsistModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (IsFound(index.row()) && (role == Qt::BackgroundRole || role == Qt::FontRole))
        return foundLook(role);
    if (role == Qt::AccessibleDescriptionRole)
        return description(index);
    // The first column is too narrow for an icon.
    const QVariant remark = m_remarks.Data(index.row(), role, index.column() == kStockColumns - 1);
    return remark.isValid() ? remark : VehicleModel::data(index, role);
}

/// What the row shows by colour, icon and tool tip is part of its description.
QString ConsistModel::description(const QModelIndex &index) const
{
    QString text = VehicleModel::data(index, Qt::AccessibleDescriptionRole).toString();
    if (IsFound(index.row()))
        text += QStringLiteral(", matches the search");
    if (HasRemark(index.row()))
        text +=
            QStringLiteral(". ") + m_remarks.Data(index.row(), Qt::ToolTipRole, false).toString();
    return text;
}

} // namespace document
