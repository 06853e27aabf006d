// SPDX-License-Identifier: MIT
#include "ui/main/Program.h"

int main(int argc, char **argv)
{
    return app::RunProgram(argc, argv);
}
