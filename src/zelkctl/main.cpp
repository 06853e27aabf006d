// SPDX-License-Identifier: MIT
#include "Program.h"
#include "host/Console.h"

int main(int argc, char **argv)
{
    return zelkctl::Run(host::Arguments(argc, argv));
}
