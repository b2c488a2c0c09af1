// SPDX-License-Identifier: Apache-2.0
// vornctl: the scriptable command line for base stations.
#include <iostream>

#include "CommandLine.h"

int main(int argc, char** argv)
{
    return VornCtl::runCommandLine(argc, argv, std::cout, std::cerr);
}
