// SPDX-License-Identifier: MIT
#include "ui/document/VehicleModel.h"

namespace document {

void VehicleModel::ShowFigure(content::FactColumn column, bool show)
{
    if (m_figures.IsShown(column) == show)
        return;
    const int at = kStockColumns + m_figures.PlaceOf(column);
    if (show)
        beginInsertColumns({}, at, at);
    else
        beginRemoveColumns({}, at, at);
    m_figures.Show(column, show);
    if (show)
        endInsertColumns();
    else
        endRemoveColumns();
}

int VehicleModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kStockColumns + static_cast<int>(m_figures.Shown().size());
}

QVariant VehicleModel::data(const QModelIndex &index, int role) const
{
    const StockItem &item = Item(index.row());
    if (role == Qt::AccessibleDescriptionRole)
        return m_figures.Description(item);
    if (index.column() >= kStockColumns)
        return m_figures.Data(item, index.column() - kStockColumns, role);
    if (role != Qt::DisplayRole)
        return {};
    const std::string *const texts[kStockColumns] = {&item.type, &item.folder, &item.shape};
    return QString::fromStdString(*texts[index.column()]);
}

QVariant VehicleModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr const char *titles[kStockColumns] = {"Type", "Folder", "Shape"};
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (section >= kStockColumns)
        return m_figures.Header(section - kStockColumns, role);
    return role == Qt::DisplayRole ? QVariant(QString::fromLatin1(titles[section])) : QVariant();
}

} // namespace document
