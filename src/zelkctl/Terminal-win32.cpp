// SPDX-License-Identifier: MIT
#include "Terminal.h"

#include <cstdio>

#include <io.h>

bool zelkctl::IsErrorTerminal()
{
    return _isatty(_fileno(stderr)) != 0;
}
