// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QPoint>

#include <functional>

namespace document {

struct EditorLayout;

/// What the main window lends to the windows in it: its icons, its menus and the editors' layout.
struct Furnishing
{
    std::function<QIcon(const char *name)> icon;
    std::function<void(const QPoint &globalPosition)> popUpConsistMenu;
    std::function<void(const QPoint &globalPosition)> popUpStockMenu;
    EditorLayout *layout = nullptr; ///< outlives the windows
};

} // namespace document
