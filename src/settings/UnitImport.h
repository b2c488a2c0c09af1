// SPDX-License-Identifier: Apache-2.0
// Which unit of a backup file an editor imports: the one with the edited
// unit's serial, else the file's only unit. As in a restore, a unit of the
// file that carries another serial than the edited unit is another unit:
// taken only on the user's explicit word.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BackupFile.h"

namespace Settings {

struct ImportChoice {
    BackupUnit unit;
    // The file's unit has a serial and the edited unit reports another one.
    bool otherSerial = false;

    bool operator==(const ImportChoice&) const = default;
};

// None when the file has no unit with `serial` and more than one unit (or
// none at all). An empty serial matches no unit by serial.
std::optional<ImportChoice> unitToImport(const Backup& backup, std::string_view serial);

// The keys of `config` that the editor has no field for, in display order:
// an import leaves them out (a restore carries them). Serial and Version
// name the unit and are no settings.
std::vector<std::string> keysNotImported(const Vorn::Config& config);

}  // namespace Settings
