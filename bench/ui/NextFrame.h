// SPDX-License-Identifier: Apache-2.0
// Frame pacing for the window benchmarks.
#pragma once

class QQuickWindow;

// Asks `window` for a frame and waits until it is on screen; false when none
// comes within a second.
bool nextFrame(QQuickWindow* window);
