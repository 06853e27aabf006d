// SPDX-License-Identifier: MIT
#include "ui/main/QtDesktop.h"

#include "app/Wastebasket-posix.h"

namespace app {

bool QtDesktop::MoveToWastebasket(const std::string &file)
{
    return app::MoveToWastebasket(file);
}

} // namespace app
