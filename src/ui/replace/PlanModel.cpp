// SPDX-License-Identifier: MIT
#include "ui/replace/PlanModel.h"

#include "host/Text.h"

#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace replace {
namespace {

enum Column
{
    What,
    Remark,
    Columns
};

// The identifier of an index leads to its parent: none for a group, the group for a file, and the
// file, behind the groups, for a unit.
constexpr quintptr kTop = 0, kFirstGroup = 1, kFirstFile = kFirstGroup + PlanModel::Groups;

QString unitText(const document::UnitInUse &unit, const std::string &type)
{
    const QString vehicle =
        QString::fromStdString(document::VehicleText({type, unit.folder, unit.name}));
    const QString number = unit.number > 0 ? QStringLiteral("Unit %1: ").arg(unit.number)
                                           : QStringLiteral("Outside any unit: ");
    return unit.loose > 0
               ? QStringLiteral("Loose consist %1, ").arg(unit.loose) + number.toLower() + vehicle
               : number + vehicle;
}

} // namespace

void PlanModel::SetPlan(std::shared_ptr<document::ReplacementPlan> plan)
{
    beginResetModel();
    m_plan = std::move(plan);
    m_groups.clear();
    for (int group = 0; m_plan && group < Groups; ++group)
        if (filesIn(static_cast<Group>(group)) > 0)
            m_groups.push_back(static_cast<Group>(group));
    endResetModel();
}

void PlanModel::ShowChanges()
{
    if (!m_groups.empty())
        Q_EMIT dataChanged(index(0, 0), index(static_cast<int>(m_groups.size()) - 1, Remark));
    Q_EMIT ChoiceChanged();
}

QModelIndex PlanModel::IndexOf(Group group) const
{
    const auto place = std::find(m_groups.begin(), m_groups.end(), group);
    return place == m_groups.end() ? QModelIndex()
                                   : index(static_cast<int>(place - m_groups.begin()), 0);
}

int PlanModel::filesIn(Group group) const
{
    const std::size_t count = group == Consists ? m_plan->Consists()
                              : group == Faults ? m_plan->Faults().size()
                                                : m_plan->Files().size() - m_plan->Consists();
    return static_cast<int>(count);
}

PlanModel::Node PlanModel::nodeOf(const QModelIndex &index) const
{
    const quintptr id = index.internalId();
    if (id == kTop)
        return {m_groups[static_cast<std::size_t>(index.row())]};
    if (id < kFirstFile)
        return {static_cast<Group>(id - kFirstGroup), index.row()};
    const auto file = static_cast<std::size_t>(id - kFirstFile);
    const bool isConsist = file < m_plan->Consists();
    return {isConsist ? Consists : Activities,
            static_cast<int>(isConsist ? file : file - m_plan->Consists()), index.row()};
}

/// Returns the index of the node's file in the plan.
std::size_t PlanModel::fileAt(const Node &node) const
{
    return static_cast<std::size_t>(node.file) +
           (node.group == Activities ? m_plan->Consists() : 0);
}

QModelIndex PlanModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return createIndex(row, column, kTop);
    const Node node = nodeOf(parent);
    return createIndex(row, column,
                       node.file < 0 ? kFirstGroup + static_cast<quintptr>(node.group)
                                     : kFirstFile + static_cast<quintptr>(fileAt(node)));
}

QModelIndex PlanModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == kTop)
        return {};
    const Node node = nodeOf(index);
    return node.unit < 0
               ? IndexOf(node.group)
               : createIndex(node.file, 0, kFirstGroup + static_cast<quintptr>(node.group));
}

int PlanModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return static_cast<int>(m_groups.size());
    if (parent.column() > 0)
        return 0;
    const Node node = nodeOf(parent);
    if (node.file < 0)
        return filesIn(node.group);
    return node.unit >= 0 || node.group == Faults
               ? 0
               : static_cast<int>(m_plan->Files()[fileAt(node)].found.units.size());
}

int PlanModel::columnCount(const QModelIndex &) const
{
    return Columns;
}

bool PlanModel::isCheckable(const Node &node) const
{
    return node.group != Faults && (node.file < 0 || m_plan->Files()[fileAt(node)].blocked.empty());
}

Qt::ItemFlags PlanModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.isValid() && index.column() == What && isCheckable(nodeOf(index)))
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

Qt::CheckState PlanModel::checkState(const Node &node) const
{
    const std::vector<document::ReplacementPlan::File> &files = m_plan->Files();
    if (node.unit >= 0)
        return files[fileAt(node)].chosen[static_cast<std::size_t>(node.unit)] ? Qt::Checked
                                                                               : Qt::Unchecked;
    std::size_t first = fileAt({node.group, std::max(node.file, 0)});
    const std::size_t end =
        first + (node.file >= 0 ? 1 : static_cast<std::size_t>(filesIn(node.group)));
    std::size_t units = 0, chosen = 0;
    for (; first < end; ++first) {
        units += files[first].chosen.size();
        chosen += files[first].ChosenUnits();
    }
    return chosen == 0 ? Qt::Unchecked : chosen == units ? Qt::Checked : Qt::PartiallyChecked;
}

QString PlanModel::what(const Node &node) const
{
    if (node.file < 0) {
        const char *const titles[Groups] = {"Consists (%1)", "Activities (%1)",
                                            "Not searched, stay as they are (%1)"};
        return QString::fromLatin1(titles[node.group]).arg(filesIn(node.group));
    }
    if (node.group == Faults)
        return QString::fromStdString(m_plan->Faults()[static_cast<std::size_t>(node.file)]);
    const document::ReplacementPlan::File &file = m_plan->Files()[fileAt(node)];
    return node.unit < 0 ? QString::fromStdString(file.name)
                         : unitText(file.found.units[static_cast<std::size_t>(node.unit)],
                                    m_plan->From().type);
}

QString PlanModel::remark(const Node &node) const
{
    if (node.file < 0 || node.group == Faults)
        return {};
    const document::ReplacementPlan::File &file = m_plan->Files()[fileAt(node)];
    if (node.unit >= 0)
        return QStringLiteral("line %1").arg(
            file.found.units[static_cast<std::size_t>(node.unit)].line);
    if (!file.blocked.empty())
        return QString::fromStdString(file.blocked);
    return QString::fromStdString(host::Counted(file.found.units.size(), "unit", "units"));
}

QVariant PlanModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Node node = nodeOf(index);
    if (role == Qt::CheckStateRole && index.column() == What && node.group != Faults)
        return checkState(node);
    if (role == Qt::AccessibleDescriptionRole)
        return remark(node);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const QString text = index.column() == What ? what(node) : remark(node);
    // A name may look like markup.
    return role == Qt::ToolTipRole && Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text)
                                                                : text;
}

bool PlanModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || !isCheckable(nodeOf(index)))
        return false;
    const Node node = nodeOf(index);
    const bool chosen = value.toInt() == Qt::Checked;
    if (node.unit >= 0)
        m_plan->Choose(fileAt(node), static_cast<std::size_t>(node.unit), chosen);
    else
        for (int file = std::max(node.file, 0);
             file < (node.file >= 0 ? node.file + 1 : filesIn(node.group)); ++file)
            m_plan->Choose(fileAt({node.group, file}), chosen);
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    ShowChanges();
    return true;
}

QVariant PlanModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == What ? QStringLiteral("Where it is used") : QStringLiteral("Remark");
}

} // namespace replace
