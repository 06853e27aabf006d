// SPDX-License-Identifier: MIT
#pragma once

#include "ui/health/HealthModel.h"

#include <QTreeView>

#include <memory>
#include <vector>

namespace health {

/// The tree of a health report. A new tree keeps the expanded rows, the selection and the current
/// row.
class HealthView : public QTreeView
{
    Q_OBJECT

public:
    explicit HealthView(QWidget *parent = nullptr);

    void SetTree(std::shared_ptr<const content::HealthTree> tree);
    const HealthModel &Rows() const { return *m_model; }
    HealthModel::Node Current() const { return m_model->NodeOf(currentIndex()); }
    /// Returns the selected rows, without those below another selected row.
    std::vector<QModelIndex> SelectedRows() const;
    /// Returns the findings of the selected rows, each once.
    std::vector<const content::Finding *> SelectedFindings() const;

    QSize minimumSizeHint() const override { return {200, 80}; }

Q_SIGNALS:
    /// Emitted on Return and on a double click on a row without rows below.
    void Chosen(const QModelIndex &row);
    void SelectionMoved();
    void MenuWanted(const QPoint &globalPosition);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;

private:
    struct State;

    State state() const;
    void restore(const State &state);
    void restoreBelow(const QModelIndex &parent, const State &state, QItemSelection &selection);
    void sizeColumns();

    HealthModel *m_model;
};

} // namespace health
