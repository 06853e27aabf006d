// SPDX-License-Identifier: MIT
#pragma once

#include "install/Train.h"

#include <QAbstractTableModel>
#include <QIcon>

#include <string>
#include <vector>

namespace replace {

/// A vehicle to choose, and a remark about it.
struct VehicleRow
{
    install::StockItem vehicle;
    std::string remark;
    bool isMissing = false; ///< shown with an icon
};

/// The rows of a list of vehicles: folder, file and remark. A search hides those that do not
/// match: they have no row.
class PickerModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// `remarkTitle` is the header of the third column.
    PickerModel(const QString &remarkTitle, const QIcon &missing, QObject *parent = nullptr);

    void SetVehicles(std::vector<VehicleRow> vehicles);
    /// Shows only the vehicles whose "FOLDER/NAME.wag" and remark contain each of the words.
    void Search(const std::string &words);
    /// Returns the number of vehicles, hidden ones included.
    int VehicleCount() const { return static_cast<int>(m_vehicles.size()); }
    const VehicleRow &At(int row) const
    {
        return m_vehicles[m_shown[static_cast<std::size_t>(row)]];
    }
    /// Returns the row of a vehicle; -1 if it has none. Letter case is ignored.
    int RowOf(const install::StockItem &vehicle) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void filter();

    const QString m_remarkTitle;
    const QIcon m_missing;
    std::vector<VehicleRow> m_vehicles;
    std::vector<std::string> m_keys; ///< what searches compare, in upper case
    std::vector<std::size_t> m_shown;
    std::string m_words;
};

} // namespace replace
