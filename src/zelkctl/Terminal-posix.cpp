// SPDX-License-Identifier: MIT
#include "Terminal.h"

#include <unistd.h>

bool zelkctl::IsErrorTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}
