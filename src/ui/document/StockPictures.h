// SPDX-License-Identifier: MIT
#pragma once

#include "ui/view3d/VehiclePictures.h"

#include <QObject>

namespace document {

struct EditorLayout;

/// The pictures of vehicles in all editors, and where the user wants to see them: in a preview
/// below the train, and in the rows of the stock list.
class StockPictures : public QObject
{
    Q_OBJECT

public:
    /// `layout`, which holds the user's choices, must outlive this object.
    StockPictures(const install::Environment &environment, EditorLayout &layout,
                  QObject *parent = nullptr);

    viewer::VehiclePictures &Maker() { return m_maker; }

    bool ShowsPreview() const;
    void ShowPreview(bool show);
    bool ShowsRows() const;
    void ShowRows(bool show);
    /// Looks whether the pictures that are shown are those of the files on the disk.
    void LookAgain() { Q_EMIT LookedAgain(); }

Q_SIGNALS:
    void PreviewChanged();
    void RowsChanged();
    void LookedAgain();

private:
    EditorLayout &m_layout;
    viewer::VehiclePictures m_maker;
};

} // namespace document
