// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QWidget>

namespace viewer {

/// Lets a control over a 3D view use the keys that go to its first and last entry and from page to
/// page, although they are keys of commands too.
class NavigationKeys : public QObject
{
public:
    explicit NavigationKeys(QWidget &control)
        : QObject(&control)
    {
        control.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ShortcutOverride)
            switch (static_cast<QKeyEvent *>(event)->key()) {
            case Qt::Key_Home:
            case Qt::Key_End:
            case Qt::Key_PageUp:
            case Qt::Key_PageDown:
                event->accept();
                return true;
            default:
                break;
            }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace viewer
