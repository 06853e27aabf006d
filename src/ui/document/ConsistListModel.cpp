// SPDX-License-Identifier: MIT
#include "ui/document/ConsistListModel.h"

namespace document {

void ConsistListModel::SetNames(std::vector<std::string> names)
{
    beginResetModel();
    m_names = std::move(names);
    m_remarks.Clear(m_names.size());
    endResetModel();
}

void ConsistListModel::SetRemarks(int first, const std::vector<QString> &remarks)
{
    int changedFrom = -1, changedTo = -1;
    for (int i = 0; i < static_cast<int>(remarks.size()); ++i) {
        if (!m_remarks.Set(first + i, remarks[static_cast<std::size_t>(i)]))
            continue;
        changedFrom = changedFrom < 0 ? first + i : changedFrom;
        changedTo = first + i;
    }
    if (changedFrom >= 0)
        Q_EMIT dataChanged(index(changedFrom, 0), index(changedTo, 0));
}

int ConsistListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_names.size());
}

int ConsistListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant ConsistListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    return role == Qt::DisplayRole ? QString::fromStdString(Name(index.row()))
                                   : m_remarks.Data(index.row(), role, true);
}

QVariant ConsistListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section != 0 || orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringLiteral("Consist File");
}

} // namespace document
