// SPDX-License-Identifier: Apache-2.0
// vornctl: the scriptable command line for base stations.
#include <QCoreApplication>

#include <iostream>

#include "CommandLine.h"

int main(int argc, char** argv)
{
    // Qt SQL loads the site store's driver through the application object.
    QCoreApplication app(argc, argv);
    return VornCtl::runCommandLine(argc, argv, std::cout, std::cerr);
}
