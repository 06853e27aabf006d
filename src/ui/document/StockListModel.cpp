// SPDX-License-Identifier: MIT
#include "ui/document/StockListModel.h"

#include <iterator>

namespace document {

QVariant StockColumn(const StockItem &item, int column, int role)
{
    if (role != Qt::DisplayRole)
        return {};
    const std::string &text = column == 0 ? item.type : column == 1 ? item.folder : item.shape;
    return QString::fromStdString(text);
}

QVariant StockHeader(int column, Qt::Orientation orientation, int role)
{
    static constexpr const char *titles[kStockColumns] = {"Type", "Folder", "Shape"};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || column < 0 ||
        column >= kStockColumns)
        return {};
    return QString::fromLatin1(titles[column]);
}

void StockListModel::Clear()
{
    beginResetModel();
    m_items.clear();
    m_shown.clear();
    endResetModel();
}

void StockListModel::Append(std::vector<StockItem> items)
{
    if (items.empty())
        return;
    const int first = rowCount();
    const int count = static_cast<int>(items.size());
    beginInsertRows({}, first, first + count - 1);
    std::move(items.begin(), items.end(), std::back_inserter(m_items));
    for (int i = first; i < first + count; ++i)
        m_shown.push_back(i);
    endInsertRows();
}

void StockListModel::SetOrder(const StockOrder &order)
{
    m_order = order;
    Resort();
}

void StockListModel::ClickHeader(int column)
{
    m_order.Click(column);
    Resort();
}

void StockListModel::Resort()
{
    if (m_order.column < 0)
        return;
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> items;
    for (const QModelIndex &index : before)
        items.push_back(m_shown[static_cast<std::size_t>(index.row())]);
    m_shown = SortedIndexes(m_items, m_order);
    std::vector<int> rowOf(m_shown.size());
    for (std::size_t row = 0; row < m_shown.size(); ++row)
        rowOf[static_cast<std::size_t>(m_shown[row])] = static_cast<int>(row);
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i) {
        const int item = items[static_cast<std::size_t>(i)];
        after.push_back(createIndex(rowOf[static_cast<std::size_t>(item)], before[i].column()));
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

const StockItem &StockListModel::Item(int row) const
{
    return m_items[static_cast<std::size_t>(m_shown[static_cast<std::size_t>(row)])];
}

int StockListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

int StockListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kStockColumns;
}

QVariant StockListModel::data(const QModelIndex &index, int role) const
{
    return index.isValid() ? StockColumn(Item(index.row()), index.column(), role) : QVariant();
}

QVariant StockListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return StockHeader(section, orientation, role);
}

} // namespace document
