// SPDX-License-Identifier: MIT
#pragma once

#include "document/ReplacementPlan.h"

#include <QAbstractItemModel>

#include <memory>

namespace replace {

/// The tree of a replacement plan: consists, activities and files that cannot be searched, the
/// files of each, and the units of each file. Each has a check mark, except for what cannot be
/// chosen.
class PlanModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Group
    {
        Consists,
        Activities,
        Faults,
        Groups
    };

    using QAbstractItemModel::QAbstractItemModel;

    /// Shows a plan, which the user changes here; null for none.
    void SetPlan(std::shared_ptr<document::ReplacementPlan> plan);
    const std::shared_ptr<document::ReplacementPlan> &Plan() const { return m_plan; }
    /// Shows the plan again after it has changed elsewhere.
    void ShowChanges();
    /// Returns the index of a group; invalid if the plan has nothing in it.
    QModelIndex IndexOf(Group group) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    /// Units were chosen or withdrawn; any visible row may have changed.
    void ChoiceChanged();

private:
    /// A row: a group, a file or fault of it, or a unit of a file.
    struct Node
    {
        Group group;
        int file = -1; ///< within the group
        int unit = -1;
    };
    Node nodeOf(const QModelIndex &index) const;
    std::size_t fileAt(const Node &node) const;
    int filesIn(Group group) const;
    bool isCheckable(const Node &node) const;
    QString what(const Node &node) const;
    QString remark(const Node &node) const;
    Qt::CheckState checkState(const Node &node) const;

    std::shared_ptr<document::ReplacementPlan> m_plan;
    std::vector<Group> m_groups; ///< those with something in them
};

} // namespace replace
