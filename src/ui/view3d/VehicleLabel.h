// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace viewer {

/// A line across a corner of a 3D view with the name of the vehicle that was chosen. Hidden while
/// there is none. Lets the mouse through to the view.
class VehicleLabel : public QLabel
{
    Q_OBJECT

public:
    explicit VehicleLabel(QWidget *parent = nullptr);

    /// Shows a name, and has screen readers read it; "" hides the label.
    void ShowName(const QString &name);
};

} // namespace viewer
