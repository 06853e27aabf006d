// SPDX-License-Identifier: MIT
#include "ui/document/ConsistListModel.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace document {

void ConsistListModel::SetNames(std::vector<std::string> names)
{
    beginResetModel();
    m_names = std::move(names);
    m_remarks.Clear(m_names.size());
    m_shown.resize(m_names.size());
    std::iota(m_shown.begin(), m_shown.end(), 0);
    endResetModel();
}

void ConsistListModel::ShowOnly(std::vector<int> indexes)
{
    if (indexes == m_shown)
        return;
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    const std::vector<int> old = std::exchange(m_shown, std::move(indexes));
    QModelIndexList after;
    for (const QModelIndex &each : before) {
        const int name = old[static_cast<std::size_t>(each.row())];
        const auto at = std::lower_bound(m_shown.begin(), m_shown.end(), name);
        const bool isShown = at != m_shown.end() && *at == name;
        after.push_back(isShown ? createIndex(static_cast<int>(at - m_shown.begin()), 0)
                                : QModelIndex());
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
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
    if (changedFrom < 0)
        return;
    const auto row = [this](int name) {
        return static_cast<int>(std::lower_bound(m_shown.begin(), m_shown.end(), name) -
                                m_shown.begin());
    };
    if (const int from = row(changedFrom), to = row(changedTo + 1) - 1; from <= to)
        Q_EMIT dataChanged(index(from, 0), index(to, 0));
}

int ConsistListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
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
                                   : m_remarks.Data(IndexOfRow(index.row()), role, true);
}

QVariant ConsistListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section != 0 || orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringLiteral("Consist File");
}

} // namespace document
