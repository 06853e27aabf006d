// SPDX-License-Identifier: MIT
#include "ui/document/FoldingRow.h"

#include <algorithm>

namespace document {

FoldingRow::FoldingRow(QLayout *first, QLayout *second, Second place, int gap)
    : m_place(place)
    , m_gap(gap)
{
    setSpacing(6);
    for (QLayout *group : {first, second}) {
        addChildLayout(group);
        m_groups << group;
    }
}

FoldingRow::~FoldingRow()
{
    while (!m_groups.isEmpty())
        delete m_groups.takeLast();
}

/// Must not be called: the constructor receives both groups, and no others can be added.
void FoldingRow::addItem(QLayoutItem *item)
{
    Q_ASSERT_X(false, "FoldingRow", "a row holds two groups");
    delete item;
}

int FoldingRow::count() const
{
    return static_cast<int>(m_groups.size());
}

QLayoutItem *FoldingRow::itemAt(int index) const
{
    return m_groups.value(index);
}

QLayoutItem *FoldingRow::takeAt(int index)
{
    return index >= 0 && index < count() ? m_groups.takeAt(index) : nullptr;
}

bool FoldingRow::folds(int width) const
{
    int wanted = m_gap;
    for (const QLayoutItem *group : m_groups)
        wanted += group->sizeHint().width();
    return width < wanted;
}

int FoldingRow::heightForWidth(int width) const
{
    int sum = 0, highest = 0;
    for (const QLayoutItem *group : m_groups) {
        sum += group->sizeHint().height();
        highest = std::max(highest, group->sizeHint().height());
    }
    return folds(width) ? sum + spacing() : highest;
}

QSize FoldingRow::minimumSize() const
{
    QSize size;
    for (const QLayoutItem *group : m_groups)
        size = size.expandedTo(group->minimumSize());
    return size;
}

QSize FoldingRow::sizeHint() const
{
    QSize size(m_gap, 0);
    for (const QLayoutItem *group : m_groups)
        size = QSize(size.width() + group->sizeHint().width(),
                     std::max(size.height(), group->sizeHint().height()));
    return size;
}

void FoldingRow::setGeometry(const QRect &area)
{
    QLayout::setGeometry(area);
    if (m_groups.size() != 2)
        return;
    const QSize first = m_groups[0]->sizeHint().boundedTo(area.size()),
                second = m_groups[1]->sizeHint().boundedTo(area.size());
    const bool below = folds(area.width());
    QPoint at = below ? QPoint(area.left(), area.top() + first.height() + spacing())
                      : QPoint(area.left() + first.width() + m_gap, area.top());
    if (m_place == Second::AtRight)
        at.setX(area.right() + 1 - second.width());
    m_groups[0]->setGeometry(QRect(area.topLeft(), first));
    m_groups[1]->setGeometry(QRect(at, second));
}

} // namespace document
