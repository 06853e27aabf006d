// SPDX-License-Identifier: MIT
#include "ui/main/QtDesktop.h"

#include <QFile>

namespace app {

bool QtDesktop::MoveToWastebasket(const std::string &file)
{
    // Qt refuses if the system would delete the file for good, and does not report why.
    return QFile::moveToTrash(QString::fromStdString(file));
}

} // namespace app
