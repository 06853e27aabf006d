// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/SceneParts.h"

#include <QFrame>

#include <functional>
#include <set>
#include <string>
#include <vector>

class QListWidget;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace viewer {

/// A list at the left edge of a 3D view, below a line with its title and a button that closes it.
/// Hidden at first.
class ViewList : public QFrame
{
    Q_OBJECT

public:
    QToolButton *cmdCloseList;

Q_SIGNALS:
    /// Emitted when the user wants to close the list.
    void CloseWanted();

protected:
    ViewList(const char *name, const char *title, QWidget *parent);
    void setContent(QWidget *content, const char *name, const char *title);
    void keyPressEvent(QKeyEvent *event) override;
};

/// The parts of the shapes of a scene, in their hierarchy. Parts with a check mark are shown; those
/// without a check box only move others. The check box of a shape switches all its parts, and is
/// half checked while some of them are hidden.
class PartTree : public ViewList
{
    Q_OBJECT

public:
    explicit PartTree(QWidget *parent);

    /// Fills the tree; `hidden` as in ViewOptions.
    void Fill(const std::vector<ShapeParts> &shapes, const std::set<std::string> &hidden);
    /// Sets the check marks.
    void Mark(const std::set<std::string> &hidden);

    QTreeWidget *tvParts;

Q_SIGNALS:
    void HiddenChanged(const std::set<std::string> &hidden);

private:
    void addShape(const ShapeParts &shape);
    void change(QTreeWidgetItem *item);
    void forEachPart(QTreeWidgetItem *item, const std::function<void(QTreeWidgetItem &)> &use);

    std::set<std::string> m_hidden;
};

/// The missing textures of a scene, one sentence each.
class MissingList : public ViewList
{
    Q_OBJECT

public:
    explicit MissingList(QWidget *parent);

    void Fill(const std::vector<std::string> &textures);

    QListWidget *lstMissing;
};

} // namespace viewer
