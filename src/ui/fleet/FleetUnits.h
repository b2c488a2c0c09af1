// SPDX-License-Identifier: Apache-2.0
// The client's listed units in the settings core's terms: as live units for
// matching and planning, and as a backup of them all.
#pragma once

#include <vector>

#include "BackupFile.h"
#include "BackupMatch.h"
#include "VornClient.h"

std::vector<Settings::LiveUnit> liveUnitsOf(const VornClient& client);

// Every listed unit, taken now.
Settings::Backup backupOf(const VornClient& client);
