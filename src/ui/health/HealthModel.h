// SPDX-License-Identifier: MIT
#pragma once

#include "content/HealthTree.h"

#include <QAbstractItemModel>
#include <QIcon>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace health {

/// The tree of a health report: causes, wanted files, files that want them. It makes the rows of
/// the last level when they are first needed.
class HealthModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        What,
        Findings,
        SeverityColumn,
        Simulator,
        State,
        Columns
    };
    /// A row; exactly one of the pointers is set, or none for an invalid index. They are valid
    /// until the next SetTree.
    struct Node
    {
        const content::HealthTree::CauseRow *cause = nullptr;
        const content::HealthTree::WantedRow *wanted = nullptr;
        const content::HealthTree::UserRow *user = nullptr;
    };

    /// `icons` are by content::Severity.
    HealthModel(std::array<QIcon, 3> icons, QObject *parent = nullptr);

    void SetTree(std::shared_ptr<const content::HealthTree> tree);
    /// Returns the tree; null before the first SetTree.
    const content::HealthTree *Tree() const { return m_tree.get(); }
    Node NodeOf(const QModelIndex &index) const;
    /// Returns a text that identifies the row in every report.
    std::string KeyOf(const QModelIndex &index) const;
    /// Returns the indexes of the findings of a row.
    std::vector<std::uint32_t> FindingsOf(const QModelIndex &index) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const std::vector<content::HealthTree::UserRow> &usersOf(std::size_t wanted) const;
    QString text(const QModelIndex &index) const;
    QString textOfWhat(const Node &node) const;
    content::HealthTree::Summary summaryOf(const Node &node) const;
    QString spoken(const QModelIndex &index) const;

    std::array<QIcon, 3> m_icons;
    std::shared_ptr<const content::HealthTree> m_tree;
    std::vector<std::size_t> m_causeOf; ///< by wanted row
    mutable std::unordered_map<std::size_t, std::vector<content::HealthTree::UserRow>> m_users;
};

} // namespace health
