// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace install {

/// A control of a window, and how it is known: by `name` in the code and to whoever drives the
/// program from outside, by `title` to those who have the screen read aloud. A label has "" for a
/// title: its text is what they are to hear.
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
