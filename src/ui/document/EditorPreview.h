// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockList.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace viewer {
class VehiclePreview;
}

namespace document {

class EditorControls;
class StockFigures;
class StockPictures;

/// Keeps the preview of an editor at the vehicle that is selected in the list that was last
/// entered.
class EditorPreview : public QObject
{
    Q_OBJECT

public:
    /// Returns the selected vehicle, null for none.
    using Selected = std::function<const StockItem *()>;

    /// All arguments must outlive this object.
    EditorPreview(EditorControls &controls, StockPictures &pictures, StockFigures &figures,
                  Selected selected, QObject *parent = nullptr);

private:
    void connectLists(EditorControls &controls);
    void showOrHide();
    void follow();

    StockPictures &m_pictures;
    StockFigures &m_figures;
    viewer::VehiclePreview &m_preview;
    Selected m_selected;
    QTimer m_timer; ///< several signals make one change
};

} // namespace document
