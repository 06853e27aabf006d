// SPDX-License-Identifier: MIT
#include "ui/replace/PickerModel.h"

#include "host/Text.h"

#include <algorithm>
#include <utility>

namespace replace {
namespace {

enum Column
{
    Folder,
    File,
    Remark,
    Columns
};

constexpr char kKeyEnd = '\n'; // between the vehicle and its remark

std::string fileOf(const install::StockItem &vehicle)
{
    return install::StockFileName(vehicle.type, vehicle.shape);
}

std::string keyOf(const install::StockItem &vehicle)
{
    return host::ToUpper(vehicle.folder + '/' + fileOf(vehicle));
}

std::vector<std::string> wordsOf(const std::string &text)
{
    std::vector<std::string> words;
    for (const QString &word :
         QString::fromStdString(text).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        words.push_back(host::ToUpper(word.toStdString()));
    return words;
}

} // namespace

PickerModel::PickerModel(const QString &remarkTitle, const QIcon &missing, QObject *parent)
    : QAbstractTableModel(parent)
    , m_remarkTitle(remarkTitle)
    , m_missing(missing)
{
}

void PickerModel::SetVehicles(std::vector<VehicleRow> vehicles)
{
    beginResetModel();
    m_vehicles = std::move(vehicles);
    m_keys.clear();
    for (const VehicleRow &row : m_vehicles)
        m_keys.push_back(keyOf(row.vehicle) + kKeyEnd + host::ToUpper(row.remark));
    filter();
    endResetModel();
}

void PickerModel::Search(const std::string &words)
{
    beginResetModel();
    m_words = words;
    filter();
    endResetModel();
}

void PickerModel::filter()
{
    const std::vector<std::string> words = wordsOf(m_words);
    m_shown.clear();
    for (std::size_t i = 0; i < m_keys.size(); ++i)
        if (std::all_of(words.begin(), words.end(), [&](const std::string &word) {
                return m_keys[i].find(word) != std::string::npos;
            }))
            m_shown.push_back(i);
}

int PickerModel::RowOf(const install::StockItem &vehicle) const
{
    const std::string key = keyOf(vehicle) + kKeyEnd;
    for (std::size_t row = 0; row < m_shown.size(); ++row)
        if (m_keys[m_shown[row]].starts_with(key))
            return static_cast<int>(row);
    return -1;
}

int PickerModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int PickerModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant PickerModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const VehicleRow &row = At(index.row());
    if (role == Qt::DecorationRole)
        return row.isMissing && index.column() == File ? QVariant(m_missing) : QVariant();
    if (role != Qt::DisplayRole)
        return {};
    const std::string text = index.column() == Folder ? row.vehicle.folder
                             : index.column() == File ? fileOf(row.vehicle)
                                                      : row.remark;
    return QString::fromStdString(text);
}

QVariant PickerModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (section == Remark)
        return m_remarkTitle;
    return section == Folder ? QStringLiteral("Folder") : QStringLiteral("File");
}

} // namespace replace
