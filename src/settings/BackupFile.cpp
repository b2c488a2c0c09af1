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
    Message message;
};

// "PLACE: PROBLEM", where the place is the file, a unit or one of its keys.
[[noreturn]] void fail(Message place, Message problem)
{
    throw Invalid{Message(SETTINGS_TEXT("BackupFile", "%1: %2"), {std::move(place), std::move(problem)})};
}

Message filePlace()
{
    return SETTINGS_TEXT("BackupFile", "file");
}

Message unitPlace(std::size_t index)
{
    return Message(SETTINGS_TEXT("BackupFile", "unit %1"), {Message::plain(std::to_string(index))});
}

const Json& field(const Json& object, std::string_view name, const Message& place)
{
    const auto found = object.find(name);
    if (found == object.end())
        fail(place, Message(SETTINGS_TEXT("BackupFile", "\"%1\" is missing"), {Message::plain(std::string(name))}));
    return *found;
}

std::string textField(const Json& object, std::string_view name, const Message& place)
{
    const Json& value = field(object, name, place);
    if (!value.is_string())
        fail(place, Message(SETTINGS_TEXT("BackupFile", "\"%1\" must be text"), {Message::plain(std::string(name))}));
    return value.get<std::string>();
}

void checkVersion(const Json& document)
{
    const Json& version = field(document, "version", filePlace());
    if (!version.is_number_integer())
        fail(filePlace(), SETTINGS_TEXT("BackupFile", "\"version\" must be a whole number"));
    const auto number = Message::plain(std::to_string(version.get<std::int64_t>()));
    if (version.get<std::int64_t>() > kBackupVersion)
        fail(filePlace(), Message(SETTINGS_TEXT("BackupFile", "version %1 is newer than this program reads (%2)"),
                                  {number, Message::plain(std::to_string(kBackupVersion))}));
    if (version.get<std::int64_t>() < kBackupVersion)
        fail(filePlace(), Message(SETTINGS_TEXT("BackupFile", "version %1 is not a version of this format"), {number}));
}

Vorn::Config readConfig(const Json& unit, std::size_t index)
{
    const Json& config = field(unit, "config", unitPlace(index));
    if (!config.is_object())
        fail(unitPlace(index), SETTINGS_TEXT("BackupFile", "\"config\" must be an object"));
    Vorn::Config result;
    result.reserve(config.size());
    for (const auto& [key, value] : config.items()) {
        if (auto refused = keyRefusal(key))
            fail(unitPlace(index), std::move(*refused));
        const Message keyPlace(SETTINGS_TEXT("BackupFile", "unit %1, key \"%2\""),
                               {Message::plain(std::to_string(index)), Message::plain(key)});
        if (!value.is_string())
            fail(keyPlace, SETTINGS_TEXT("BackupFile", "the value must be text"));
        if (auto refused = valueRefusal(key, value.get_ref<const std::string&>()))
            fail(keyPlace, std::move(*refused));
        result.emplace(key, value.get<std::string>());
    }
    return result;
}

BackupUnit readUnit(const Json& unit, std::size_t index)
{
    const Message place = unitPlace(index);
    if (!unit.is_object())
        fail(place, SETTINGS_TEXT("BackupFile", "must be an object"));
    BackupUnit result;
    result.serial = textField(unit, "serial", place);
    result.address = textField(unit, "address", place);
    if (!Ipv4::parse(result.address))
        fail(place, Message(SETTINGS_TEXT("BackupFile", "\"address\" \"%1\" is not an IPv4 address"),
                            {Message::plain(result.address)}));
    result.firmware = textField(unit, "firmware", place);
    result.config = readConfig(unit, index);
    return result;
}

Backup readDocument(const Json& document)
{
    if (!document.is_object())
        fail(filePlace(), SETTINGS_TEXT("BackupFile", "must be a JSON object"));
    const Json& format = field(document, "format", filePlace());
    if (!format.is_string() || format.get<std::string>() != kBackupFormat)
        fail(filePlace(), Message(SETTINGS_TEXT("BackupFile", "\"format\" is not \"%1\""),
                                  {Message::plain(std::string(kBackupFormat))}));
    checkVersion(document);
    Backup backup;
    backup.taken = textField(document, "taken", filePlace());
    const Json& units = field(document, "units", filePlace());
    if (!units.is_array())
        fail(filePlace(), SETTINGS_TEXT("BackupFile", "\"units\" must be an array"));
    backup.units.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i)
        backup.units.push_back(readUnit(units[i], i));
    return backup;
}

// The error of reading the file: "file: PROBLEM".
BackupError fileError(Message problem)
{
    return BackupError{Message(SETTINGS_TEXT("BackupFile", "%1: %2"), {filePlace(), std::move(problem)})};
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
        return fileError(Message(SETTINGS_TEXT("BackupFile", "larger than %1 MiB"),
                                 {Message::plain(std::to_string(kBackupMaxBytes >> 20))}));
    Json document;
    try {
        document = Json::parse(text);
    } catch (const Json::parse_error& error) {
        return fileError(Message(SETTINGS_TEXT("BackupFile", "not valid JSON (at byte %1)"),
                                 {Message::plain(std::to_string(error.byte))}));
    } catch (const Json::exception&) {
        // A number beyond what JSON readers hold, e.g. 1e400.
        return fileError(SETTINGS_TEXT("BackupFile", "not valid JSON (a number out of range)"));
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
        return BackupError{Message(SETTINGS_TEXT("BackupFile", "%1: cannot be read"), {Message::plain(path)})};
    // One byte more than allowed, so that readBackup sees a file too large.
    std::string text;
    text.resize(kBackupMaxBytes + 1);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    auto read = readBackup(text);
    if (auto* error = std::get_if<BackupError>(&read))
        error->message = Message(SETTINGS_TEXT("BackupFile", "%1: %2"), {Message::plain(path), std::move(error->message)});
    return read;
}

bool writeBackupFile(const std::string& path, const Backup& backup)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    return static_cast<bool>(file << writeBackup(backup)) && static_cast<bool>(file.flush());
}

}  // namespace Settings
