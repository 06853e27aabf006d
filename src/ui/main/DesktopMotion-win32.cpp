// SPDX-License-Identifier: MIT
#include "ui/main/DesktopMotion.h"

#include "host/Windows-win32.h"

namespace app {

bool DesktopAnimates()
{
    BOOL animates = TRUE;
    return !SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &animates, 0) || animates;
}

} // namespace app
