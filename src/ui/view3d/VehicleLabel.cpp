// SPDX-License-Identifier: MIT
#include "ui/view3d/VehicleLabel.h"

#include <QAccessible>

namespace viewer {

VehicleLabel::VehicleLabel(QWidget *parent)
    : QLabel(parent)
{
    setObjectName("lblVehicle");
    setTextFormat(Qt::PlainText);
    setAutoFillBackground(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFrameShape(QFrame::StyledPanel);
    setMargin(4);
    hide();
}

void VehicleLabel::ShowName(const QString &name)
{
    if (name == text() && name.isEmpty() == isHidden())
        return;
    setText(name);
    setAccessibleName(name);
    setVisible(!name.isEmpty());
    raise();
    if (name.isEmpty())
        return;
    QAccessibleEvent chosen(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&chosen);
}

} // namespace viewer
