// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QPoint>

#include <functional>

namespace document {

/// What the main window lends to the windows in it: its icons and its menus.
struct Furnishing
{
    std::function<QIcon(const char *name)> icon;
    std::function<void(const QPoint &globalPosition)> popUpConsistMenu;
    std::function<void(const QPoint &globalPosition)> popUpStockMenu;
};

} // namespace document
