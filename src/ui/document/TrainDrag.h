// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <optional>

class QDropEvent;
class QMouseEvent;
class QWidget;

namespace document {

class ListView;
class UnitCommands;

/// Dragging units with the mouse: inside the train it reorders them, into the train of another
/// editor it copies them. A line shows where they will be inserted.
class TrainDrag : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object.
    TrainDrag(ListView &train, UnitCommands &commands, QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void press(const QMouseEvent &event);
    bool move(const QMouseEvent &event);
    void start();
    void hover(QDropEvent &event);
    void drop(QDropEvent &event);
    void leave();
    void scroll();
    int placeAt(const QPoint &position) const;
    void showLine(int place);

    ListView &m_train;
    UnitCommands &m_commands;
    QWidget *m_line;
    QTimer m_scrolling;
    std::optional<QPoint> m_pressed; ///< where a drag may begin
};

} // namespace document
