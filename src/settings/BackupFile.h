// SPDX-License-Identifier: Apache-2.0
// The backup file: every reported key of one or more units, as reported,
// with when it was taken. JSON, versioned:
//   {"format": "vornlink-backup", "version": 1, "taken": "<UTC ISO 8601>",
//    "units": [{"serial": "...", "address": "10.77.1.10", "firmware": "...",
//               "config": {"Key": "Value", ...}}]}
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Message.h"
#include "VornConfig.h"

namespace Settings {

inline constexpr std::string_view kBackupFormat = "vornlink-backup";
inline constexpr int kBackupVersion = 1;
// Larger files are refused before they are parsed.
inline constexpr std::size_t kBackupMaxBytes = std::size_t{16} << 20;

struct BackupUnit {
    std::string serial;
    std::string address;
    std::string firmware;
    Vorn::Config config;

    bool operator==(const BackupUnit&) const = default;
};

struct Backup {
    std::string taken;
    std::vector<BackupUnit> units;

    bool operator==(const Backup&) const = default;
};

struct BackupError {
    Message message;  // names the problem and where: "unit 2, key \"Channel\": ..."
};

// A unit as it reported: serial and firmware are its Serial and Version
// values (empty when it reports none).
BackupUnit backupUnitOf(const std::string& address, const Vorn::Config& config);

// "2026-11-23T01:02:03Z".
std::string utcTimestamp(std::chrono::system_clock::time_point time);

// Indented JSON text ending in a line feed.
std::string writeBackup(const Backup& backup);

// The backup in `text`, or what is wrong with it: not JSON, another format,
// a newer version, a missing or mistyped field, a key or value that could
// never be written to a unit.
std::variant<Backup, BackupError> readBackup(std::string_view text);

// The backup in the file at `path`; the error names the file first:
// "<path>: cannot be read", "<path>: <what readBackup found>".
std::variant<Backup, BackupError> readBackupFile(const std::string& path);

// Writes `backup` to the file at `path`, replacing it; false when the file
// cannot be written.
bool writeBackupFile(const std::string& path, const Backup& backup);

}  // namespace Settings
