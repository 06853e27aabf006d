// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"
#include "ui/document/RowRemarks.h"
#include "ui/document/VehicleModel.h"

#include <vector>

namespace document {

/// The rows of lvConsist: the units of the train, in file order.
class ConsistModel : public VehicleModel
{
    Q_OBJECT

public:
    using VehicleModel::VehicleModel;

    /// Removes all remarks and marks.
    void SetRows(std::vector<ConsistRow> rows);
    const StockItem &Item(int row) const override
    {
        return m_rows[static_cast<std::size_t>(row)].item;
    }

    void SetRemarkIcon(const QIcon &icon) { m_remarks.SetIcon(icon); }
    void SetRemark(int row, const QString &remark);
    bool HasRemark(int row) const { return m_remarks.Has(row); }

    /// Marks rows that a search has found; an empty list marks none.
    void SetFound(std::vector<bool> found);
    bool IsFound(int row) const
    {
        return !m_found.empty() && m_found[static_cast<std::size_t>(row)];
    }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QString description(const QModelIndex &index) const;

    std::vector<ConsistRow> m_rows;
    RowRemarks m_remarks;
    std::vector<bool> m_found; ///< by row; empty if there is no search
};

} // namespace document
