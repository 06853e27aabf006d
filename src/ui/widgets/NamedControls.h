// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace install {

/// A control of a window and its names: `name` for the code and for programs that control the
/// window, `title` for screen readers. A label has an empty title, since screen readers read its
/// text.
struct NamedControl
{
    QWidget *control;
    const char *name, *title, *toolTip;
};

template <typename Controls> void NameControls(const Controls &controls)
{
    for (const NamedControl &entry : controls) {
        entry.control->setObjectName(entry.name);
        entry.control->setAccessibleName(QString::fromLatin1(entry.title));
        entry.control->setAccessibleDescription(QString::fromLatin1(entry.name));
        entry.control->setToolTip(QString::fromLatin1(entry.toolTip));
    }
}

} // namespace install
