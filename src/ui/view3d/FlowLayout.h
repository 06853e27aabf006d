// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>
#include <QList>

namespace viewer {

/// Places controls in rows, as many in each row as there is room for.
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    explicit FlowLayout(QWidget *parent);
    ~FlowLayout() override;

    void addItem(QLayoutItem *item) override { m_items.append(item); }
    int count() const override { return static_cast<int>(m_items.size()); }
    QLayoutItem *itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem *takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    /// The size in a single row.
    QSize sizeHint() const override;
    void setGeometry(const QRect &rectangle) override;

private:
    int place(const QRect &rectangle, bool moves) const;

    QList<QLayoutItem *> m_items;
};

} // namespace viewer
