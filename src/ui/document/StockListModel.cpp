// SPDX-License-Identifier: MIT
#include "ui/document/StockListModel.h"

#include "host/Text.h"
#include "ui/widgets/ListView.h"

#include <QElapsedTimer>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace document {

namespace {

struct FigureKey
{
    bool isKnown = false;
    double number = 0;
    std::string text;
};

/// `facts` may be null.
FigureKey keyOf(const content::StockFacts *facts, content::FactColumn column)
{
    if (!facts)
        return {};
    if (const std::optional<content::FigureId> figure = content::FactFigure(column)) {
        const content::StockFacts::Number &number = (*facts)[*figure];
        return {number.state == content::Figure::State::Known, number.value, {}};
    }
    std::string text =
        host::ToUpper(content::FactText(*facts, column, content::UnitSystem::Metric));
    return {text != "?", 0, std::move(text)};
}

} // namespace

void StockListModel::Clear()
{
    beginResetModel();
    m_items.clear();
    m_searched.clear();
    m_factsTaken = 0;
    m_sorted.clear();
    m_shown.clear();
    endResetModel();
}

void StockListModel::Append(std::vector<StockItem> items)
{
    if (items.empty())
        return;
    const auto first = static_cast<int>(m_items.size());
    std::move(items.begin(), items.end(), std::back_inserter(m_items));
    if (!m_query.IsEmpty())
        prepareAll();
    std::vector<int> shown;
    for (int index = first; index < ItemCount(); ++index) {
        m_sorted.push_back(index);
        if (isShown(index))
            shown.push_back(index);
    }
    if (shown.empty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(shown.size()) - 1);
    m_shown.insert(m_shown.end(), shown.begin(), shown.end());
    endInsertRows();
}

void StockListModel::SetOrder(const StockOrder &order)
{
    m_order = order;
    Resort();
}

void StockListModel::ClickHeader(int column)
{
    m_order.Click(OrderColumnOf(column));
    Resort();
}

int StockListModel::OrderColumnOf(int column) const
{
    if (column < kStockColumns)
        return column;
    const auto place = static_cast<std::size_t>(column - kStockColumns);
    return kStockColumns + static_cast<int>(Figures().Shown()[place]);
}

int StockListModel::ColumnOfOrder(int orderColumn) const
{
    if (orderColumn < kStockColumns)
        return orderColumn;
    const auto figure = static_cast<content::FactColumn>(orderColumn - kStockColumns);
    return Figures().IsShown(figure) ? kStockColumns + Figures().PlaceOf(figure) : -1;
}

void StockListModel::Resort()
{
    if (m_order.column < 0)
        return;
    m_sorted =
        m_order.column < kStockColumns
            ? SortedIndexes(m_items, m_order)
            : sortedByFigure(static_cast<content::FactColumn>(m_order.column - kStockColumns));
    showRows(matching(), QAbstractItemModel::VerticalSortHint);
}

/// Items without a value come last in both directions.
std::vector<int> StockListModel::sortedByFigure(content::FactColumn column) const
{
    std::vector<FigureKey> keys;
    keys.reserve(m_items.size());
    for (const StockItem &item : m_items)
        keys.push_back(keyOf(Figures().FactsOf(item).get(), column));
    const bool ascending = m_order.ascending, isText = !content::FactFigure(column);
    std::vector<int> indexes(m_items.size());
    std::iota(indexes.begin(), indexes.end(), 0);
    std::stable_sort(indexes.begin(), indexes.end(), [&](int left, int right) {
        const FigureKey &a = keys[static_cast<std::size_t>(left)];
        const FigureKey &b = keys[static_cast<std::size_t>(right)];
        if (!a.isKnown || !b.isKnown)
            return a.isKnown && !b.isKnown;
        const FigureKey &low = ascending ? a : b, &high = ascending ? b : a;
        return isText ? low.text < high.text : low.number < high.number;
    });
    return indexes;
}

/// Selections and the current row follow their items.
void StockListModel::showRows(std::vector<int> shown, LayoutChangeHint hint)
{
    Q_EMIT layoutAboutToBeChanged({}, hint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> items;
    for (const QModelIndex &index : before)
        items.push_back(IndexOfRow(index.row()));
    m_shown = std::move(shown);
    std::vector<int> rowOf(m_items.size(), -1);
    for (std::size_t row = 0; row < m_shown.size(); ++row)
        rowOf[static_cast<std::size_t>(m_shown[row])] = static_cast<int>(row);
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i) {
        const int row = rowOf[static_cast<std::size_t>(items[static_cast<std::size_t>(i)])];
        after.push_back(row < 0 ? QModelIndex() : createIndex(row, before[i].column()));
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, hint);
}

void StockListModel::SetQuery(content::StockQuery query)
{
    m_query = std::move(query);
    if (!m_query.IsEmpty())
        prepareAll();
    Refilter();
}

void StockListModel::Refilter()
{
    std::vector<int> shown = matching();
    if (shown != m_shown)
        showRows(std::move(shown), QAbstractItemModel::NoLayoutChangeHint);
}

bool StockListModel::isShown(int index) const
{
    return m_query.IsEmpty() || m_query.Matches(m_searched[static_cast<std::size_t>(index)]);
}

std::vector<int> StockListModel::matching() const
{
    std::vector<int> shown;
    shown.reserve(m_sorted.size());
    std::copy_if(m_sorted.begin(), m_sorted.end(), std::back_inserter(shown),
                 [this](int index) { return isShown(index); });
    return shown;
}

void StockListModel::prepareAll()
{
    for (std::size_t i = m_searched.size(); i < m_items.size(); ++i)
        m_searched.push_back(content::SearchedStockOf(m_items[i], nullptr));
}

int StockListModel::TakeFacts(int milliseconds)
{
    constexpr int kBetweenLooks = 32; // at the clock
    QElapsedTimer spent;
    spent.start();
    int handled = 0;
    const auto hasTime = [&] {
        return ++handled % kBetweenLooks != 0 || spent.elapsed() < milliseconds;
    };
    while (m_searched.size() < m_items.size() && hasTime())
        m_searched.push_back(content::SearchedStockOf(m_items[m_searched.size()], nullptr));
    while (m_factsTaken < m_searched.size() && hasTime()) {
        auto facts = Figures().FactsOf(m_items[m_factsTaken]);
        if (!facts)
            return handled - 1;
        content::SearchedStock &searched = m_searched[m_factsTaken];
        const bool lacksFiles = searched.lacksFiles;
        searched = content::SearchedStockOf(m_items[m_factsTaken++], std::move(facts));
        searched.lacksFiles = lacksFiles;
    }
    return handled;
}

void StockListModel::DropFacts()
{
    m_searched.clear();
    m_factsTaken = 0;
    if (!m_query.IsEmpty())
        prepareAll();
}

void StockListModel::SetLacksFiles(std::size_t first, const std::vector<bool> &lacks)
{
    prepareAll();
    for (std::size_t i = 0; i < lacks.size() && first + i < m_searched.size(); ++i)
        m_searched[first + i].lacksFiles = lacks[i];
}

int StockListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

QVariant StockListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == ListView::kPictureRole)
        return m_pictureOf && index.column() == 0 ? m_pictureOf(Item(index.row())) : QVariant();
    return VehicleModel::data(index, role);
}

} // namespace document
