// SPDX-License-Identifier: MIT
#include "host/Console.h"
#include "zelkctl/Program.h"

int main(int argc, char **argv)
{
    return zelkctl::Run(host::Arguments(argc, argv));
}
