// SPDX-License-Identifier: MIT
#include "ui/document/ConsistListModel.h"

namespace document {

void ConsistListModel::SetNames(std::vector<std::string> names)
{
    beginResetModel();
    m_names = std::move(names);
    endResetModel();
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
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    return QString::fromStdString(Name(index.row()));
}

QVariant ConsistListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section != 0 || orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringLiteral("Consist File");
}

} // namespace document
