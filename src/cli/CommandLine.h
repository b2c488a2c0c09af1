// SPDX-License-Identifier: Apache-2.0
// vornctl's command line: commands, options, help, version and usage errors.
#pragma once

#include <ostream>

namespace VornCtl {

// Runs vornctl with `argv` and returns its exit status.
int runCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

}  // namespace VornCtl
