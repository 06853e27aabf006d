// SPDX-License-Identifier: MIT
#include "app/Program.h"

int main(int argc, char **argv)
{
    return app::RunProgram(argc, argv);
}
