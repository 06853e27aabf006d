// SPDX-License-Identifier: MIT
#include "ui/main/QtDesktop.h"

#include <QFile>

namespace app {

bool QtDesktop::MoveToWastebasket(const std::string &file)
{
    // Qt refuses where the system would delete the file for good, and does not say why.
    return QFile::moveToTrash(QString::fromStdString(file));
}

} // namespace app
