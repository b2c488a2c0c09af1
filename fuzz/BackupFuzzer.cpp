// SPDX-License-Identifier: Apache-2.0
// Feeds arbitrary bytes to the backup reader. Whatever it accepts must hold
// nothing that could break a write datagram, every address must be an
// address, and writing it out and reading it back must give the same backup.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "BackupFile.h"
#include "Ipv4.h"
#include "ValueSafety.h"

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto read = Settings::readBackup(text);
    if (const auto* error = std::get_if<Settings::BackupError>(&read)) {
        require(!Settings::english(error->message).empty());
        return 0;
    }
    const auto& backup = std::get<Settings::Backup>(read);
    for (const auto& unit : backup.units) {
        require(Settings::Ipv4::parse(unit.address).has_value());
        require(!Settings::configRefusal(unit.config).has_value());
    }
    const auto again = Settings::readBackup(Settings::writeBackup(backup));
    require(std::holds_alternative<Settings::Backup>(again));
    require(std::get<Settings::Backup>(again) == backup);
    return 0;
}
