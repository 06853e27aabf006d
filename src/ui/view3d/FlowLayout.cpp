// SPDX-License-Identifier: MIT
#include "ui/view3d/FlowLayout.h"

#include <algorithm>

namespace viewer {

FlowLayout::FlowLayout(QWidget *parent)
    : QLayout(parent)
{
    setContentsMargins(4, 3, 4, 3);
    setSpacing(2);
}

FlowLayout::~FlowLayout()
{
    qDeleteAll(m_items);
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const
{
    return place({0, 0, width, 0}, false);
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem *item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size.grownBy(contentsMargins());
}

QSize FlowLayout::sizeHint() const
{
    QSize size;
    for (const QLayoutItem *item : m_items) {
        const QSize wanted = item->sizeHint();
        size = {size.width() + wanted.width() + (size.isEmpty() ? 0 : spacing()),
                std::max(size.height(), wanted.height())};
    }
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect &rectangle)
{
    QLayout::setGeometry(rectangle);
    place(rectangle, true);
}

/// Returns the height of all rows in a rectangle of this width, and moves the controls there, in
/// the middle of their row's height.
int FlowLayout::place(const QRect &rectangle, bool moves) const
{
    const QRect inside = rectangle.marginsRemoved(contentsMargins());
    int y = inside.top(), rowHeight = 0;
    for (qsizetype first = 0, end = 0; first < m_items.size(); first = end) {
        y += first > 0 ? rowHeight + spacing() : 0;
        rowHeight = 0;
        int width = 0;
        for (; end < m_items.size(); ++end) {
            const QSize size = m_items[end]->sizeHint();
            if (end > first && width + size.width() > inside.width())
                break;
            width += size.width() + spacing();
            rowHeight = std::max(rowHeight, size.height());
        }
        int x = inside.left();
        for (qsizetype i = first; i < end && moves; ++i) {
            const QSize size = m_items[i]->sizeHint();
            m_items[i]->setGeometry({QPoint(x, y + (rowHeight - size.height()) / 2), size});
            x += size.width() + spacing();
        }
    }
    return y + rowHeight + contentsMargins().bottom() - rectangle.top();
}

} // namespace viewer
