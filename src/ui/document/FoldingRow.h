// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>

namespace document {

/// A row of two groups of controls. If the width is too small for both, the second group is placed
/// below the first.
class FoldingRow : public QLayout
{
public:
    enum class Second
    {
        Beside, ///< directly after the first group
        AtRight ///< at the right edge, in both arrangements
    };

    /// Takes ownership of the groups. Their controls become children of this layout's widget. `gap`
    /// is the minimum distance between the groups when they are side by side.
    FoldingRow(QLayout *first, QLayout *second, Second place, int gap);
    ~FoldingRow() override;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect &area) override;

private:
    bool folds(int width) const;

    QList<QLayoutItem *> m_groups; ///< none or both
    Second m_place;
    int m_gap;
};

} // namespace document
