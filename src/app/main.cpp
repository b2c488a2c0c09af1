// Process entry: the headless self-test is dispatched before anything else.
#include <cstdio>
#include <iostream>
#include <span>

#include "SelfTest.h"

int main(int argc, char** argv)
{
    const std::span<const char* const> arguments(argv, static_cast<std::size_t>(argc));
    if (VornLink::hasSelfTestFlag(arguments))
        return VornLink::runSelfTest(std::cout);

    std::fputs("vornlink: the window is not part of this build yet; run 'vornlink --selftest'.\n", stderr);
    return 2;
}
