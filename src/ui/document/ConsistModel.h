// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"
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

    /// Removes all remarks.
    void SetRows(std::vector<ConsistRow> rows);
    const StockItem &Item(int row) const { return m_rows[static_cast<std::size_t>(row)].item; }

    void SetRemarkIcon(const QIcon &icon) { m_remarks.SetIcon(icon); }
    void SetRemark(int row, const QString &remark);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<ConsistRow> m_rows;
    RowRemarks m_remarks;
};

} // namespace document
