// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QPoint>

#include <functional>

namespace document {

struct EditorLayout;
class StockFigures;
class StockPictures;

/// The parts of the main window that document windows use: icons, menus and the editors' layout.
struct Furnishing
{
    std::function<QIcon(const char *name)> icon;
    std::function<void(const QPoint &globalPosition)> popUpConsistMenu;
    std::function<void(const QPoint &globalPosition)> popUpStockMenu;
    EditorLayout *layout = nullptr;    ///< must outlive the windows
    StockFigures *figures = nullptr;   ///< must outlive the windows
    StockPictures *pictures = nullptr; ///< must outlive the windows
};

} // namespace document
