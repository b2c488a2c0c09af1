// SPDX-License-Identifier: Apache-2.0
// Which unit of a backup file an editor imports: the one with the edited
// unit's serial, else the file's only unit.
#pragma once

#include <optional>
#include <string_view>

#include "BackupFile.h"

namespace Settings {

// None when the file has no unit with `serial` and more than one unit (or
// none at all). An empty serial matches no unit by serial.
std::optional<BackupUnit> unitToImport(const Backup& backup, std::string_view serial);

}  // namespace Settings
