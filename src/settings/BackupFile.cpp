// SPDX-License-Identifier: Apache-2.0
#include "BackupFile.h"

#include <ctime>
#include <fstream>

#include <nlohmann/json.hpp>

#include "Ipv4.h"
#include "SettingKeys.h"
#include "ValueSafety.h"

namespace Settings {
namespace {

using Json = nlohmann::ordered_json;

// Thrown inside this file only; readBackup turns it into a BackupError.
struct Invalid {
    std::string message;
};

std::string unitPlace(std::size_t index)
{
    return "unit " + std::to_string(index);
}

const Json& field(const Json& object, std::string_view name, const std::string& place)
{
    const auto found = object.find(name);
    if (found == object.end())
        throw Invalid{place + ": \"" + std::string(name) + "\" is missing"};
    return *found;
}

std::string textField(const Json& object, std::string_view name, const std::string& place)
{
    const Json& value = field(object, name, place);
    if (!value.is_string())
        throw Invalid{place + ": \"" + std::string(name) + "\" must be text"};
    return value.get<std::string>();
}

void checkVersion(const Json& document)
{
    const Json& version = field(document, "version", "file");
    if (!version.is_number_integer())
        throw Invalid{"file: \"version\" must be a whole number"};
    const auto number = version.get<std::int64_t>();
    if (number > kBackupVersion)
        throw Invalid{"file: version " + std::to_string(number) + " is newer than this program reads ("
                      + std::to_string(kBackupVersion) + ")"};
    if (number < kBackupVersion)
        throw Invalid{"file: version " + std::to_string(number) + " is not a version of this format"};
}

Vorn::Config readConfig(const Json& unit, const std::string& place)
{
    const Json& config = field(unit, "config", place);
    if (!config.is_object())
        throw Invalid{place + ": \"config\" must be an object"};
    Vorn::Config result;
    result.reserve(config.size());
    for (const auto& [key, value] : config.items()) {
        if (auto refused = keyRefusal(key))
            throw Invalid{place + ": " + *refused};
        const std::string keyPlace = place + ", key \"" + key + "\"";
        if (!value.is_string())
            throw Invalid{keyPlace + ": the value must be text"};
        if (auto refused = valueRefusal(key, value.get_ref<const std::string&>()))
            throw Invalid{keyPlace + ": " + *refused};
        result.emplace(key, value.get<std::string>());
    }
    return result;
}

BackupUnit readUnit(const Json& unit, std::size_t index)
{
    const std::string place = unitPlace(index);
    if (!unit.is_object())
        throw Invalid{place + ": must be an object"};
    BackupUnit result;
    result.serial = textField(unit, "serial", place);
    result.address = textField(unit, "address", place);
    if (!Ipv4::parse(result.address))
        throw Invalid{place + ": \"address\" \"" + result.address + "\" is not an IPv4 address"};
    result.firmware = textField(unit, "firmware", place);
    result.config = readConfig(unit, place);
    return result;
}

Backup readDocument(const Json& document)
{
    if (!document.is_object())
        throw Invalid{"file: must be a JSON object"};
    const Json& format = field(document, "format", "file");
    if (!format.is_string() || format.get<std::string>() != kBackupFormat)
        throw Invalid{"file: \"format\" is not \"" + std::string(kBackupFormat) + "\""};
    checkVersion(document);
    Backup backup;
    backup.taken = textField(document, "taken", "file");
    const Json& units = field(document, "units", "file");
    if (!units.is_array())
        throw Invalid{"file: \"units\" must be an array"};
    backup.units.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i)
        backup.units.push_back(readUnit(units[i], i));
    return backup;
}

}  // namespace

BackupUnit backupUnitOf(const std::string& address, const Vorn::Config& config)
{
    const auto textOf = [&](std::string_view key) {
        const auto found = config.find(key);
        return found != config.end() ? found->second : std::string();
    };
    return {textOf(SettingKeys::kSerial), address, textOf(SettingKeys::kVersion), config};
}

std::string utcTimestamp(std::chrono::system_clock::time_point time)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
    return text;
}

std::string writeBackup(const Backup& backup)
{
    Json units = Json::array();
    for (const auto& unit : backup.units) {
        Json config = Json::object();
        for (const auto& [key, value] : unit.config)
            config[key] = value;
        units.push_back(Json{{"serial", unit.serial},
                             {"address", unit.address},
                             {"firmware", unit.firmware},
                             {"config", std::move(config)}});
    }
    const Json document{{"format", kBackupFormat},
                        {"version", kBackupVersion},
                        {"taken", backup.taken},
                        {"units", std::move(units)}};
    // Units report valid UTF-8 (the codec repairs it); replacing keeps this total.
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::variant<Backup, BackupError> readBackup(std::string_view text)
{
    if (text.size() > kBackupMaxBytes)
        return BackupError{"file: larger than " + std::to_string(kBackupMaxBytes >> 20) + " MiB"};
    Json document;
    try {
        document = Json::parse(text);
    } catch (const Json::parse_error& error) {
        return BackupError{"file: not valid JSON (at byte " + std::to_string(error.byte) + ")"};
    } catch (const Json::exception&) {
        // A number beyond what JSON readers hold, e.g. 1e400.
        return BackupError{"file: not valid JSON (a number out of range)"};
    }
    try {
        return readDocument(document);
    } catch (const Invalid& invalid) {
        return BackupError{invalid.message};
    }
}

std::variant<Backup, BackupError> readBackupFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return BackupError{path + ": cannot be read"};
    // One byte more than allowed, so that readBackup sees a file too large.
    std::string text;
    text.resize(kBackupMaxBytes + 1);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    auto read = readBackup(text);
    if (auto* error = std::get_if<BackupError>(&read))
        error->message = path + ": " + error->message;
    return read;
}

bool writeBackupFile(const std::string& path, const Backup& backup)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    return static_cast<bool>(file << writeBackup(backup)) && static_cast<bool>(file.flush());
}

}  // namespace Settings
