// SPDX-License-Identifier: MIT
#pragma once

#include "ui/document/RowRemarks.h"

#include <QAbstractTableModel>

#include <string>
#include <vector>

namespace document {

/// The rows of lvConsists: consist names in listing order. A search hides names: they have no row.
class ConsistListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Removes all remarks.
    void SetNames(std::vector<std::string> names);
    const std::vector<std::string> &Names() const { return m_names; }
    const std::string &Name(int row) const { return NameAt(IndexOfRow(row)); }
    /// Return all names, hidden ones included.
    int NameCount() const { return static_cast<int>(m_names.size()); }
    const std::string &NameAt(int index) const { return m_names[static_cast<std::size_t>(index)]; }
    int IndexOfRow(int row) const { return m_shown[static_cast<std::size_t>(row)]; }

    /// Shows only these names, given by their indexes in ascending order. All names are shown again
    /// when they are set.
    void ShowOnly(std::vector<int> indexes);

    void SetRemarkIcon(const QIcon &icon) { m_remarks.SetIcon(icon); }
    /// Sets the remarks of consecutive names.
    void SetRemarks(int first, const std::vector<QString> &remarks);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<std::string> m_names;
    std::vector<int> m_shown; ///< for each row, its index in m_names
    RowRemarks m_remarks;
};

} // namespace document
