// SPDX-License-Identifier: Apache-2.0
// Process entry: the headless self-test (with the site store) is dispatched
// before any GUI object exists; otherwise the window application runs.
#include <iostream>
#include <span>

#include "SelfTest.h"
#include "SelfTestSite.h"
#include "WindowApp.h"

int main(int argc, char** argv)
{
    const std::span<const char* const> arguments(argv, static_cast<std::size_t>(argc));
    if (VornLink::hasSelfTestFlag(arguments))
        return VornLink::runSelfTestWithSite(argc, argv, std::cout);
    return VornLink::runWindowApp(argc, argv);
}
