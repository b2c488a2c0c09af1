// SPDX-License-Identifier: Apache-2.0
// The window application: the main window on the process's shared client.
#pragma once

namespace VornLink {

// Opens the window and runs until the user quits; the exit status. Ends at
// once with status 1 when there is no display, before anything is sent.
int runWindowApp(int& argc, char** argv);

}  // namespace VornLink
