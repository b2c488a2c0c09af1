// SPDX-License-Identifier: Apache-2.0
// "vornlink --selftest" with the site store: the remembered units are asked
// by unicast in each cycle, and every unit that answered is recorded.
// "--site PATH" uses another file, "--no-site" none.
#pragma once

#include <ostream>

namespace VornLink {

// Runs the self-test of the process's arguments and returns its exit status.
int runSelfTestWithSite(int& argc, char** argv, std::ostream& out);

}  // namespace VornLink
