// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace VornLink {

// Opens the text faces the window draws with (the application font, its
// demi-bold and the monospace) on this thread, reading the installed fonts on
// the way. Called while the QML loader thread reads the window's types, it
// takes that work off the first frame's path.
void warmUpFonts();

}  // namespace VornLink
