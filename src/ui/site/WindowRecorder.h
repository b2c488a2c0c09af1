// SPDX-License-Identifier: Apache-2.0
// The site store the window's parts read and record through, and the record
// of a write from the window once its verdict is in: every save from the
// editor, batch write and restore goes into the unit's history with the
// program, user, host, keys sent and verdict.
#pragma once

#include <string>

#include "SaveVerdict.h"
#include "SiteRecorder.h"

namespace WindowRecorder {

// The store every part of the window uses; nullptr for none. The window sets
// it before its scene loads and clears it before the recorder goes.
void use(Site::SiteRecorder* recorder);
Site::SiteRecorder* current();

// Hands the write `verdict` has just settled, sent to the unit with `serial`
// (empty when it reports none) at `address`, to the store; nothing without one.
void recordWrite(const SaveVerdict& verdict, const std::string& serial, const std::string& address);

}  // namespace WindowRecorder
