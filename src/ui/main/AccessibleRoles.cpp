// SPDX-License-Identifier: MIT
#include "ui/main/AccessibleRoles.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace app {

namespace {

QAccessibleInterface *canvas(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (!widget || className != QLatin1String("sfCanvas"))
        return nullptr;
    return new QAccessibleWidget(widget, QAccessible::Canvas);
}

} // namespace

void NameAccessibleRoles()
{
    QAccessible::installFactory(canvas);
}

} // namespace app
