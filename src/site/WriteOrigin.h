// SPDX-License-Identifier: Apache-2.0
// Who sends a write: this computer's host name and the user running the program.
#pragma once

#include <string>

namespace Site {

std::string hostName();
std::string userName();

}  // namespace Site
