// SPDX-License-Identifier: MIT
#pragma once

#include "content/StockQuery.h"
#include "document/StockList.h"
#include "ui/document/VehicleModel.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace document {

/// The rows of lvStock: the installed stock in listing order until it is sorted. A search hides
/// items: they have no row.
class StockListModel : public VehicleModel
{
    Q_OBJECT

public:
    using VehicleModel::VehicleModel;

    void Clear();
    /// Appends items in listing order. Rows that are already sorted keep their places until Resort.
    void Append(std::vector<StockItem> items);

    const StockOrder &Order() const { return m_order; }
    /// Sorts by this order; column -1 keeps the rows as they are. A column of figures has the
    /// number kStockColumns plus its content::FactColumn.
    void SetOrder(const StockOrder &order);
    /// Sorts by a column, or reverses the order if it is already sorted by that column.
    void ClickHeader(int column);
    /// Sorts the rows again, including those appended since the last sort.
    void Resort();
    /// Convert between the number of a column in the model and in an order; -1 if it is not shown.
    int OrderColumnOf(int column) const;
    int ColumnOfOrder(int orderColumn) const;

    const StockItem &Item(int row) const override { return ItemAt(IndexOfRow(row)); }
    /// Return all items, hidden ones included, in listing order.
    int ItemCount() const { return static_cast<int>(m_items.size()); }
    const StockItem &ItemAt(int index) const { return m_items[static_cast<std::size_t>(index)]; }
    int IndexOfRow(int row) const { return m_shown[static_cast<std::size_t>(row)]; }

    /// Shows only the items that match.
    void SetQuery(content::StockQuery query);
    const content::StockQuery &Query() const { return m_query; }
    /// Applies the query again, after something that it asks for has changed.
    void Refilter();
    /// Prepares the items for searches and takes facts that have become known, for at most some
    /// milliseconds. Returns the number of items that were handled; 0 if nothing was new.
    int TakeFacts(int milliseconds);
    bool HasAllFacts() const { return m_factsTaken == m_items.size(); }
    /// Forgets the facts, to take them again.
    void DropFacts();
    /// Sets whether consecutive items lack their vehicle file or shape.
    void SetLacksFiles(std::size_t first, const std::vector<bool> &lacks);

    using PictureOf = std::function<QVariant(const StockItem &item)>;
    /// Sets the source of the pictures in the rows (ListView::kPictureRole); none at first.
    void SetPictures(PictureOf pictureOf) { m_pictureOf = std::move(pictureOf); }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    void prepareAll();
    bool isShown(int index) const;
    std::vector<int> matching() const;
    std::vector<int> sortedByFigure(content::FactColumn column) const;
    void showRows(std::vector<int> shown, LayoutChangeHint hint);

    std::vector<StockItem> m_items;
    std::vector<content::SearchedStock> m_searched; ///< of the first items, as far as prepared
    std::size_t m_factsTaken = 0;                   ///< the first items, whose facts are known
    std::vector<int> m_sorted;                      ///< indexes into m_items, hidden ones included
    std::vector<int> m_shown;                       ///< for each row, its index in m_items
    StockOrder m_order;
    content::StockQuery m_query;
    PictureOf m_pictureOf;
};

} // namespace document
